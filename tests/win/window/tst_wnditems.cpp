// The controls in a window, asked for by widget, by name and by resource id.

#include "leavenothing.h"
#include "resource.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QCheckBox>
#include <QSpinBox>

namespace {

QString toText(const CString_X& text) { return QString::fromStdWString(std::wstring(text)); }

// A window with a line edit IDC_NAME two levels down, a spin box IDC_COUNT, and a check box without a number.
struct Form
{
    Form()
    {
        name.setObjectName(QStringLiteral("IDC_NAME"));
        name.setText(QStringLiteral("螺栓 M8"));
        count.setObjectName(QStringLiteral("IDC_COUNT"));
        count.setRange(-1000, 1000);
        count.setValue(-12);
        check.setObjectName(QStringLiteral("check"));
        window.SubclassWindow(&widget);
    }

    QWidget widget;
    QGroupBox group{&widget};
    QLineEdit name{&group};
    QSpinBox count{&widget};
    QCheckBox check{&widget};
    CWnd_X window;
};

} // namespace

class tst_WndItems : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void theWidgetOfAName();
    void theWindowOfAnItem();
    void itemAsHandle();

    void textOfAnItem();
    void setTextOfAnItem();
    void numberOfAnItem_data();
    void numberOfAnItem();
    void numberByWidgetAndId();
    void setNumberOfAnItem_data();
    void setNumberOfAnItem();
    void buttons();

    void idOfAWindow();
    void windowWithoutAWidget();
};

void tst_WndItems::theWidgetOfAName()
{
    Form form;
    QCOMPARE(form.window.GetChildWidget("IDC_NAME"), &form.name);
    QCOMPARE(form.window.GetChildWidget("idc_name"), nullptr);
    QCOMPARE(form.window.GetChildWidget(""), nullptr);
    QCOMPARE(form.window.GetChildWidget(nullptr), nullptr);
    form.widget.setObjectName(QStringLiteral("form"));
    QCOMPARE(form.window.GetChildWidget("form"), nullptr); // not itself
    form.check.setObjectName(QStringLiteral("复选"));
    QCOMPARE(form.window.GetChildWidget("复选"), &form.check);
}

void tst_WndItems::theWindowOfAnItem()
{
    Form form;
    CWnd_X name;
    name.SubclassWindow(&form.name);
    QCOMPARE(form.window.GetDlgItem(&form.name), &name);
    QCOMPARE(form.window.GetDlgItem("IDC_NAME"), &name);
    QCOMPARE(form.window.GetDlgItem(IDC_NAME), &name);

    CWnd_X* const check = form.window.GetDlgItem("check");
    QVERIFY(check->IsTemporary());
    QCOMPARE(check->GetSafeHwnd(), &form.check);
    QCOMPARE(form.window.GetDlgItem(&form.check), check);

    QCOMPARE(form.window.GetDlgItem(static_cast<QWidget*>(nullptr)), nullptr);
    QCOMPARE(form.window.GetDlgItem("nowhere"), nullptr);
    QCOMPARE(form.window.GetDlgItem(IDC_NOWHERE), nullptr);
    QCOMPARE(form.window.GetDlgItem(4711), nullptr);
    QCOMPARE(form.window.GetDlgItem(0), nullptr);
}

void tst_WndItems::itemAsHandle()
{
    Form form;
    QWidget* item = nullptr;
    QCOMPARE(form.window.GetDlgItem(IDC_COUNT, &item), &form.count);
    QCOMPARE(item, &form.count);
    QCOMPARE(form.window.GetDlgItem(IDC_NOWHERE, &item), nullptr);
    QCOMPARE(item, nullptr);
    QCOMPARE(form.window.GetDlgItem(IDC_COUNT, nullptr), &form.count);
    QCOMPARE(CWnd_X::FromHandlePermanent(&form.count), nullptr); // asked for no wrapper
}

// ----------------------------------------------------------------------------------------------------------- text

void tst_WndItems::textOfAnItem()
{
    Form form;
    CString_X text;
    QCOMPARE(form.window.GetDlgItemText(&form.name, text), 5);
    QCOMPARE(toText(text), QStringLiteral("螺栓 M8"));
    text = L"";
    QCOMPARE(form.window.GetDlgItemText("IDC_NAME", text), 5);
    QCOMPARE(toText(text), QStringLiteral("螺栓 M8"));
    text = L"";
    QCOMPARE(form.window.GetDlgItemText(IDC_NAME, text), 5);
    QCOMPARE(toText(text), QStringLiteral("螺栓 M8"));
    wchar_t buffer[4] = L"###";
    QCOMPARE(form.window.GetDlgItemText(IDC_NAME, buffer, 4), GetWindowText_X(&form.name, buffer, 4));
    QCOMPARE(QString::fromWCharArray(buffer), QStringLiteral("螺栓 "));

    QCOMPARE(form.window.GetDlgItemText(static_cast<QWidget*>(nullptr), text), 0);
    QCOMPARE(form.window.GetDlgItemText("nowhere", text), 0);
    QCOMPARE(form.window.GetDlgItemText(IDC_NOWHERE, text), 0);
    QCOMPARE(toText(text), QStringLiteral("螺栓 M8"));
    QCOMPARE(form.window.GetDlgItemText(IDC_NOWHERE, buffer, 4), 0U);
}

void tst_WndItems::setTextOfAnItem()
{
    Form form;
    QCOMPARE(form.window.SetDlgItemText(&form.name, L"by widget"), 1);
    QCOMPARE(form.name.text(), QStringLiteral("by widget"));
    QCOMPARE(form.window.SetDlgItemText("IDC_NAME", L"by name"), 1);
    QCOMPARE(form.name.text(), QStringLiteral("by name"));
    QCOMPARE(form.window.SetDlgItemText(IDC_NAME, L"by id"), 1);
    QCOMPARE(form.name.text(), QStringLiteral("by id"));
    QCOMPARE(form.window.SetDlgItemText(IDC_NAME, nullptr), 1);
    QCOMPARE(form.name.text(), QString());

    QCOMPARE(form.window.SetDlgItemText(static_cast<QWidget*>(nullptr), L"text"), 0);
    QCOMPARE(form.window.SetDlgItemText("nowhere", L"text"), 0);
    QCOMPARE(form.window.SetDlgItemText(IDC_NOWHERE, L"text"), 0);
}

// --------------------------------------------------------------------------------------------------------- numbers

void tst_WndItems::numberOfAnItem_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<BOOL>("isSigned");
    QTest::addColumn<int>("number");
    QTest::addColumn<BOOL>("translated");
    QTest::newRow("number") << "42" << TRUE << 42 << TRUE;
    QTest::newRow("negative") << "-42" << TRUE << -42 << TRUE;
    QTest::newRow("negative, read as unsigned") << "-42" << FALSE << 42 << TRUE;
    QTest::newRow("the first anywhere") << "ab12cd34" << TRUE << 12 << TRUE;
    QTest::newRow("none") << "abc" << TRUE << 0 << FALSE;
    QTest::newRow("empty") << "" << TRUE << 0 << FALSE;
    QTest::newRow("too large") << "99999999999" << TRUE << 0 << TRUE;
    QTest::newRow("too large for a signed one") << "4294967295" << TRUE << 0 << TRUE;
    QTest::newRow("the largest unsigned one") << "4294967295" << FALSE << -1 << TRUE;
}

void tst_WndItems::numberOfAnItem()
{
    QFETCH(QString, text);
    QFETCH(BOOL, isSigned);
    QFETCH(int, number);
    Form form;
    form.name.setText(text);
    BOOL translated = 7;
    QCOMPARE(form.window.GetDlgItemInt(&form.name, &translated, isSigned), static_cast<UINT>(number));
    QTEST(translated, "translated");
    translated = 7;
    QCOMPARE(form.window.GetDlgItemInt(IDC_NAME, &translated, isSigned), static_cast<UINT>(number));
    QTEST(translated, "translated");
}

void tst_WndItems::numberByWidgetAndId()
{
    Form form;
    QCOMPARE(static_cast<int>(form.window.GetDlgItemInt(&form.count)), -12); // signed by default
    QCOMPARE(static_cast<int>(form.window.GetDlgItemInt(IDC_COUNT)), -12);
    BOOL translated = 7;
    QCOMPARE(form.window.GetDlgItemInt(static_cast<QWidget*>(nullptr), &translated), 0U);
    QCOMPARE(translated, FALSE);
    translated = 7;
    QCOMPARE(form.window.GetDlgItemInt(IDC_NOWHERE, &translated), 0U);
    QCOMPARE(translated, FALSE);
}

void tst_WndItems::setNumberOfAnItem_data()
{
    QTest::addColumn<UINT>("number");
    QTest::addColumn<BOOL>("isSigned");
    QTest::addColumn<QString>("text");
    QTest::newRow("signed") << 42U << TRUE << "42";
    QTest::newRow("unsigned") << 42U << FALSE << "42";
    QTest::newRow("-1 as unsigned") << 0xFFFFFFFFU << FALSE << "4294967295";
    QTest::newRow("-1 gets a sign before the unsigned number") << 0xFFFFFFFFU << TRUE << "-4294967295";
    QTest::newRow("bit 31 is the sign") << 0x80000000U << TRUE << "-2147483648";
    QTest::newRow("largest signed number") << 0x7FFFFFFFU << TRUE << "2147483647";
}

void tst_WndItems::setNumberOfAnItem()
{
    QFETCH(UINT, number);
    QFETCH(BOOL, isSigned);
    Form form;
    QCOMPARE(form.window.SetDlgItemInt(&form.name, number, isSigned), 1);
    QTEST(form.name.text(), "text");
    form.name.clear();
    QCOMPARE(form.window.SetDlgItemInt(IDC_NAME, number, isSigned), 1);
    QTEST(form.name.text(), "text");
    QCOMPARE(form.window.SetDlgItemInt(static_cast<QWidget*>(nullptr), number, isSigned), 0);
    QCOMPARE(form.window.SetDlgItemInt(IDC_NOWHERE, number, isSigned), 0);
}

void tst_WndItems::buttons()
{
    Form form;
    form.window.CheckDlgButton(&form.check, 2);
    QVERIFY(form.check.isChecked());
    QCOMPARE(form.window.IsDlgButtonChecked(&form.check), 1U);
    form.window.CheckDlgButton(&form.check, 0);
    QVERIFY(!form.check.isChecked());
    QCOMPARE(form.window.IsDlgButtonChecked(&form.check), 0U);
    form.window.CheckDlgButton(nullptr, 1);
    QCOMPARE(form.window.IsDlgButtonChecked(nullptr), 0U);
}

// -------------------------------------------------------------------------------------------------------------- ids

void tst_WndItems::idOfAWindow()
{
    Form form;
    CWnd_X name;
    name.SubclassWindow(&form.name);
    QCOMPARE(name.GetDlgCtrlID(), IDC_NAME);
    QCOMPARE(name.SetDlgCtrlID(IDC_OTHER), IDC_NAME);
    QCOMPARE(form.name.objectName(), QStringLiteral("IDC_OTHER"));
    QCOMPARE(name.GetDlgCtrlID(), IDC_OTHER);
    QCOMPARE(form.window.GetDlgItem(IDC_OTHER), &name);
    QCOMPARE(name.SetDlgCtrlID(4711), IDC_OTHER); // an id without a name takes the name away
    QCOMPARE(form.name.objectName(), QString());
    QCOMPARE(name.SetDlgCtrlID(IDC_NAME), 0);
    QCOMPARE(name.GetDlgCtrlID(), IDC_NAME);
}

void tst_WndItems::windowWithoutAWidget()
{
    CWnd_X window;
    CString_X text(L"before");
    wchar_t buffer[4] = L"###";
    QWidget other;
    QWidget* item = &other;
    BOOL translated = 7;
    QCOMPARE(window.GetDlgItem(IDC_NAME), nullptr);
    QCOMPARE(window.GetDlgItem("IDC_NAME"), nullptr);
    QCOMPARE(window.GetDlgItem(IDC_NAME, &item), nullptr);
    QCOMPARE(item, nullptr);
    QCOMPARE(window.GetDlgItemText(IDC_NAME, text), 0);
    QCOMPARE(window.GetDlgItemText("IDC_NAME", text), 0);
    QCOMPARE(toText(text), QStringLiteral("before"));
    QCOMPARE(window.GetDlgItemText(IDC_NAME, buffer, 4), 0U);
    QCOMPARE(window.SetDlgItemText(IDC_NAME, L"text"), 0);
    QCOMPARE(window.SetDlgItemText("IDC_NAME", L"text"), 0);
    QCOMPARE(window.GetDlgItemInt(IDC_NAME, &translated), 0U);
    QCOMPARE(translated, FALSE);
    QCOMPARE(window.SetDlgItemInt(IDC_NAME, 1), 0);
    QCOMPARE(window.GetDlgCtrlID(), 0);
    QCOMPARE(window.SetDlgCtrlID(IDC_NAME), 0);
}

XE_TEST(tst_WndItems)
#include "tst_wnditems.moc"
