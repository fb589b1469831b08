// The examples of the headers' comments, word for word, put to use.

#include "resource.h"
#include "testclass.h"

#include <leavenothing.h>
#include <modaldriver.h>
#include <xeafxddx.h>
#include <xeafxdlg.h>

#include <QCheckBox>
#include <QVBoxLayout>

namespace {

// As a form of Qt Designer is compiled.
struct PartForm
{
    void setupUi(QDialog* dialog)
    {
        new QVBoxLayout(dialog);
        name = new QLineEdit(dialog);
        name->setObjectName(QStringLiteral("IDC_NAME"));
        stock = new QLineEdit(dialog);
        stock->setObjectName(QStringLiteral("stock"));
        inUse = new QCheckBox(dialog);
    }

    QLineEdit* name = nullptr;
    QLineEdit* stock = nullptr;
    QCheckBox* inUse = nullptr;
};

} // namespace

// ---- CDialog_X

namespace dialogs {

CString_X used;

void use(const CString_X& name) { used = name; }

class CPartDialog : public CDialog_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CPartDialog)
public:
    explicit CPartDialog(CWnd_X* parent = nullptr) : CDialog_X(IDD_PART, parent) {}
    CString_X m_name;

protected:
    void SetupUI() override { m_form.setupUi(Imp<QDialog>()); } // a form of Qt Designer
    void DoDataExchange(CDataExchange_X* exchange) override { DDX_Text(exchange, IDC_NAME, m_name); }

private: // not in the comment
    PartForm m_form;
};
IMPLEMENT_DYNAMIC_X(CPartDialog, CDialog_X)

class CHost : public CWnd_X
{
public:
    void ask()
    {
        CPartDialog dialog(this);
        if (dialog.DoModal() == IDOK)
            use(dialog.m_name);
    }
};

} // namespace dialogs

// ---- data exchange

namespace exchange {

class CPartDialog : public CDialog_X
{
public:
    CString_X m_name = L"bolt";
    int m_stock = 12;
    int m_inUse = 1;
    PartForm m_form;

    void SetupUI() override { m_form.setupUi(Imp<QDialog>()); }
    void DoDataExchange(CDataExchange_X* exchange) override;
};

void CPartDialog::DoDataExchange(CDataExchange_X* exchange)
{
    CDialog_X::DoDataExchange(exchange);
    DDX_Text(exchange, IDC_NAME, m_name);
    DDV_MaxChars(exchange, m_name, 40);
    DDX_Text(exchange, "stock", m_stock);
    DDV_MinMaxInt(exchange, m_stock, 0, 9999);
    DDX_Check(exchange, m_form.inUse, m_inUse);
}

} // namespace exchange

class tst_DialogExamples : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void dialog()
    {
        const ModalDriver<QDialog> driver([](QDialog* widget) {
            widget->findChild<QLineEdit*>()->setText(QStringLiteral("螺栓"));
            static_cast<CDialog_X*>(CWnd_X::FromHandlePermanent(widget))->accept();
        });
        dialogs::CHost host;
        host.ask();
        QCOMPARE(dialogs::used, CString_X(L"螺栓"));
    }

    void dataExchange()
    {
        exchange::CPartDialog dialog;
        QVERIFY(dialog.Create(unsigned(IDD_PART)));
        QCOMPARE(dialog.m_form.name->text(), QStringLiteral("bolt"));
        QCOMPARE(dialog.m_form.name->maxLength(), 40);
        QVERIFY(dialog.m_form.inUse->isChecked());
        dialog.m_form.stock->setText(QStringLiteral("9999"));
        QCOMPARE(dialog.UpdateData(), 1);
        QCOMPARE(dialog.m_stock, 9999);
        dialog.m_form.stock->setText(QStringLiteral("10000"));
        QCOMPARE(dialog.UpdateData(), 0);
    }
};

XE_TEST(tst_DialogExamples)
#include "tst_dialogexamples.moc"
