// The records of controls that want the same Qt class stand here, since the first one has it: a QTextEdit without a
// wrapper gives a CEdit_X.

#include "xeafxctrl.h"

#include <QLineEdit>
#include <QTextEdit>

CRuntimeClass_X::MetaList* CEdit_X::GetImpMetaList()
{
    return CRuntimeClass_X::CreateMetaList(&QLineEdit::staticMetaObject, &QTextEdit::staticMetaObject,
                                           static_cast<const QMetaObject*>(nullptr));
}

IMPLEMENT_DYNCREATE_X(CEdit_X, CWnd_X)
IMPLEMENT_DYNCREATE_X(CRichEditCtrl_X, CWnd_X)
