#include "win/animationkeeper.h"
#include "xeafxdlgs.h"

BOOL SHBrowseForFolder_X(const wchar_t* title, CString_X& result)
{
    QFileDialog dialog;
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setViewMode(QFileDialog::List);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    dialog.setFileMode(QFileDialog::DirectoryOnly); // no files among the folders, whatever the options
    QT_WARNING_POP
    dialog.setWindowTitle(XeQString(title));
    const xe::AnimationKeeper keeper;
    if (dialog.exec() != QDialog::Accepted)
        return FALSE;
    const QString folder = dialog.selectedFiles().value(0, dialog.directory().path());
    if (folder.isEmpty())
        return FALSE;
    result = folder;
    return TRUE;
}
