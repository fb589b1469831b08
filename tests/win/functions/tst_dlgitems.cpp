// The items of a dialog by their resource ids, in the tables of this program.

#include "functions/makewidget.h"
#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QCheckBox>
#include <QDateEdit>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTextBrowser>
#include <QTextEdit>

namespace {

constexpr int idText = 1001;
constexpr int idCheck = 1002;
constexpr int idGroup = 1003;
constexpr int idSpin = 1004;
constexpr int idAbsent = 1005;
constexpr int idStatic = -1;
constexpr int idUnknown = 4242;

template <class Item>
Item* add(QWidget* parent, const char* name)
{
    auto* const item = new Item(parent);
    item->setObjectName(QString::fromLatin1(name));
    return item;
}

// A form of the host's. Its first child has no name.
struct Form : QWidget
{
    QWidget* const nameless = new QWidget(this);
    QGroupBox* const group = add<QGroupBox>(this, "IDC_GROUP");
    QLineEdit* const edit = add<QLineEdit>(group, "IDC_TEXT");
    QSpinBox* const spinBox = add<QSpinBox>(group, "IDC_SPIN");
    QCheckBox* const check = add<QCheckBox>(this, "IDC_CHECK");
    QLabel* const label = add<QLabel>(this, "IDC_STATIC");
};

class LastTextWindow : public CWnd_X
{
public:
    void SetWindowText(const wchar_t* text) override { last = QString::fromWCharArray(text); }

    QString last;
};

template <class Control>
QWidget* makeItem()
{
    return new Control;
}

template <bool editable>
QWidget* makeBox()
{
    auto* const box = new QComboBox;
    box->setEditable(editable);
    return box;
}

} // namespace

class tst_DlgItems : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void itemById();
    void zeroFindsNothing();
    void idWithoutAnItem_data();
    void idWithoutAnItem();
    void idOfAnItem();
    void textOfAnItem();
    void textOfAWrappedItem();

    void numberInAnItem_data();
    void numberInAnItem();
    void numberWithoutAnItem();
    void numberOfAnyKindOfItem();
    void onlyTheStartOfALongTextCounts();
    void numberWritten_data();
    void numberWritten();
    void numberWrittenToNoItem();

    void checkedButton_data();
    void checkedButton();
    void whatIsNoCheckedButton();

    void selectAll();
    void selectAllKinds_data();
    void selectAllKinds();
    void limitText_data();
    void limitText();
};

void tst_DlgItems::itemById()
{
    Form form;
    QCOMPARE(GetDlgItem_X(&form, idGroup), form.group);
    QCOMPARE(GetDlgItem_X(&form, idText), form.edit); // in the group
    QCOMPARE(GetDlgItem_X(&form, idCheck), form.check);
    QCOMPARE(GetDlgItem_X(&form, idStatic), form.label);
    QCOMPARE(GetDlgItem_X(form.group, idCheck), nullptr); // no child of it
}

void tst_DlgItems::zeroFindsNothing()
{
    Form form;
    GetResourceIDMap().insert(0, QStringLiteral("IDC_CHECK"));
    QCOMPARE(GetDlgItem_X(&form, 0), nullptr);
    GetResourceIDMap().remove(0);
}

void tst_DlgItems::idWithoutAnItem_data()
{
    QTest::addColumn<int>("id");
    QTest::newRow("zero") << 0;
    QTest::newRow("without a name") << idUnknown;
    QTest::newRow("negative, without a name") << -2;
    QTest::newRow("with a name that no item has") << idAbsent;
}

void tst_DlgItems::idWithoutAnItem()
{
    QFETCH(int, id);
    Form form;
    wchar_t buffer[] = L"####";
    QCOMPARE(GetDlgItem_X(&form, id), nullptr);
    QCOMPARE(SetDlgItemText_X(&form, id, L"text"), 0);
    QCOMPARE(GetDlgItemText_X(&form, id, buffer, 4), 0u);
    QCOMPARE(IsDlgButtonChecked_X(&form, id), 0u);
    QCOMPARE(form.nameless->windowTitle(), QString());
}

void tst_DlgItems::idOfAnItem()
{
    Form form;
    QCOMPARE(GetDlgCtrlID_X(form.edit), idText);
    QCOMPARE(GetDlgCtrlID_X(form.label), idStatic);
    QCOMPARE(GetDlgCtrlID_X(form.nameless), 0);
    form.edit->setObjectName(QStringLiteral("idc_text"));
    QCOMPARE(GetDlgCtrlID_X(form.edit), 0);
    QCOMPARE(GetDlgCtrlID_X(nullptr), 0);
}

void tst_DlgItems::textOfAnItem()
{
    Form form;
    QCOMPARE(SetDlgItemText_X(&form, idText, L"abcdef"), 1);
    QCOMPARE(form.edit->text(), QStringLiteral("abcdef"));
    wchar_t buffer[] = L"########";
    QCOMPARE(GetDlgItemText_X(&form, idText, buffer, 8), 6u);
    QCOMPARE(QString::fromWCharArray(buffer), QStringLiteral("abcdef"));
    QCOMPARE(GetDlgItemText_X(&form, idText, buffer, 4), 3u);
    QCOMPARE(QString::fromWCharArray(buffer), QStringLiteral("abc"));

    QCOMPARE(GetDlgItem_X(nullptr, idText), nullptr);
    QCOMPARE(SetDlgItemText_X(nullptr, idText, L"text"), 0);
    QCOMPARE(GetDlgItemText_X(nullptr, idText, buffer, 4), 0u);
    QCOMPARE(GetDlgItemText_X(&form, idText, nullptr, 4), 0u);
}

void tst_DlgItems::textOfAWrappedItem()
{
    Form form;
    LastTextWindow wrapper;
    wrapper.SubclassWindow(form.edit);
    QCOMPARE(SetDlgItemText_X(&form, idText, L"12"), 1);
    QCOMPARE(wrapper.last, QStringLiteral("12"));
    QCOMPARE(SetDlgItemInt_X(&form, idText, 13, TRUE), 1);
    QCOMPARE(wrapper.last, QStringLiteral("13"));
    QCOMPARE(form.edit->text(), QString());
}

// ------------------------------------------------------------------------------------------------------------- numbers

void tst_DlgItems::numberInAnItem_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isSigned");
    QTest::addColumn<unsigned>("number");
    QTest::addColumn<int>("translated");
    const auto row = [](const char* name, const QString& text, bool isSigned, unsigned number, int translated) {
        QTest::newRow(name) << text << isSigned << number << translated;
    };
    row("a number", "12", false, 12, 1);
    row("in the middle", "ab12cd", false, 12, 1);
    row("in the middle, signed", "ab12cd", true, 12, 1);
    row("the first of two", "12 34", false, 12, 1);
    row("up to the point", "3.14", true, 3, 1);
    row("up to the separator", "1,234", true, 1, 1);
    row("zero", "0", false, 0, 1);
    row("leading zeros are decimal", "010", false, 10, 1);
    row("negative, signed", "ab-12cd", true, static_cast<unsigned>(-12), 1);
    row("negative, unsigned: without the sign", "ab-12cd", false, 12, 1);
    row("two signs", "--5", true, static_cast<unsigned>(-5), 1);
    row("a sign apart", "- 5", true, 5, 1);
    row("a sign alone", "-", true, 0, 0);
    row("no number", "abc", false, 0, 0);
    row("no number, signed", "abc", true, 0, 0);
    row("empty", "", false, 0, 0);
    row("digits of another script", "٣", false, 0, 0);
    row("highest, signed", "2147483647", true, 2147483647, 1);
    row("lowest, signed", "-2147483648", true, 2147483648, 1);
    row("too high, signed", "2147483648", true, 0, 1);
    row("too low, signed", "-2147483649", true, 0, 1);
    row("highest, unsigned", "4294967295", false, 4294967295, 1);
    row("too high, unsigned", "4294967296", false, 0, 1);
    row("far too high", "99999999999999999999", false, 0, 1);
}

void tst_DlgItems::numberInAnItem()
{
    QFETCH(QString, text);
    QFETCH(bool, isSigned);
    QFETCH(unsigned, number);
    Form form;
    form.edit->setText(text);
    BOOL translated = 7;
    QCOMPARE(GetDlgItemInt_X(&form, idText, &translated, isSigned), number);
    QTEST(translated, "translated");
    QCOMPARE(GetDlgItemInt_X(&form, idText, nullptr, isSigned), number);

    LastTextWindow window;
    window.SubclassWindow(&form);
    translated = 7;
    QCOMPARE(window.GetDlgItemInt(form.edit, &translated, isSigned), number);
    QTEST(translated, "translated");
}

void tst_DlgItems::numberWithoutAnItem()
{
    Form form;
    BOOL translated = 7;
    QCOMPARE(GetDlgItemInt_X(&form, idUnknown, &translated, TRUE), 0u);
    QCOMPARE(translated, 0);
    translated = 7;
    QCOMPARE(GetDlgItemInt_X(nullptr, idText, &translated, TRUE), 0u);
    QCOMPARE(translated, 0);
    QCOMPARE(GetDlgItemInt_X(nullptr, idText, nullptr, TRUE), 0u);
}

void tst_DlgItems::numberOfAnyKindOfItem()
{
    Form form;
    form.spinBox->setPrefix(QStringLiteral("no "));
    form.spinBox->setValue(31);
    form.label->setText(QStringLiteral("Part 5 of 7"));
    QCOMPARE(GetDlgItemInt_X(&form, idSpin, nullptr, TRUE), 31u);
    QCOMPARE(GetDlgItemInt_X(&form, idStatic, nullptr, TRUE), 5u);
}

void tst_DlgItems::onlyTheStartOfALongTextCounts()
{
    Form form;
    BOOL translated = 7;
    form.edit->setText(QString(254, 'x') + "7");
    QCOMPARE(GetDlgItemInt_X(&form, idText, &translated, FALSE), 7u);
    QCOMPARE(translated, 1);
    form.edit->setText(QString(256, 'x') + "7");
    QCOMPARE(GetDlgItemInt_X(&form, idText, &translated, FALSE), 0u);
    QCOMPARE(translated, 0);

    LastTextWindow window;
    window.SubclassWindow(&form);
    QCOMPARE(window.GetDlgItemInt(form.edit, &translated, FALSE), 7u); // the whole of it, asked by the widget
    QCOMPARE(translated, 1);
}

void tst_DlgItems::numberWritten_data()
{
    QTest::addColumn<unsigned>("value");
    QTest::addColumn<bool>("isSigned");
    QTest::addColumn<QString>("text");
    QTest::newRow("zero") << 0u << true << "0";
    QTest::newRow("positive") << 42u << true << "42";
    QTest::newRow("highest, signed") << 2147483647u << true << "2147483647";
    QTest::newRow("-1, signed: a sign before the unsigned number") << 4294967295u << true << "-4294967295";
    QTest::newRow("lowest, signed") << 2147483648u << true << "-2147483648";
    QTest::newRow("-1, unsigned") << 4294967295u << false << "4294967295";
    QTest::newRow("bit 31 alone, unsigned") << 2147483648u << false << "2147483648";
}

void tst_DlgItems::numberWritten()
{
    QFETCH(unsigned, value);
    QFETCH(bool, isSigned);
    Form form;
    QCOMPARE(SetDlgItemInt_X(&form, idText, value, isSigned), 1);
    QTEST(form.edit->text(), "text");

    LastTextWindow window;
    window.SubclassWindow(&form);
    form.edit->clear();
    window.SetDlgItemInt(form.edit, value, isSigned);
    QTEST(form.edit->text(), "text");
}

void tst_DlgItems::numberWrittenToNoItem()
{
    Form form;
    QCOMPARE(SetDlgItemInt_X(&form, idUnknown, 1, TRUE), 0);
    QCOMPARE(SetDlgItemInt_X(nullptr, idText, 1, TRUE), 0);
}

// ------------------------------------------------------------------------------------------------------- check buttons

void tst_DlgItems::checkedButton_data()
{
    QTest::addColumn<unsigned>("style");
    QTest::addColumn<bool>("checked");
    QTest::addColumn<unsigned>("result");
    QTest::newRow("checked") << 0u << true << 1u;
    QTest::newRow("not checked") << 0u << false << 0u;
    QTest::newRow("BS_AUTOCHECKBOX, checked") << 3u << true << 1u;
    QTest::newRow("BS_AUTOCHECKBOX, not checked") << 3u << false << 0u;
    QTest::newRow("BS_3STATE, checked") << 5u << true << 5u;
    QTest::newRow("BS_3STATE, not checked") << 5u << false << 5u;
    QTest::newRow("BS_AUTO3STATE, checked") << 6u << true << 5u;
    QTest::newRow("BS_AUTO3STATE, not checked") << 6u << false << 5u;
    QTest::newRow("BS_AUTO3STATE among other bits") << 0x50010006u << false << 5u;
    QTest::newRow("BS_3STATE in other bits only") << 0x50010050u << true << 1u;
    QTest::newRow("BS_GROUPBOX, checked") << 7u << true << 1u;
    QTest::newRow("BS_AUTORADIOBUTTON, not checked") << 9u << false << 0u;
}

void tst_DlgItems::checkedButton()
{
    QFETCH(unsigned, style);
    QFETCH(bool, checked);
    Form form;
    LastTextWindow wrapper;
    wrapper.SubclassWindow(form.check);
    wrapper.ModifyStyle(0, style);
    form.check->setChecked(checked);
    QTEST(IsDlgButtonChecked_X(&form, idCheck), "result");
}

void tst_DlgItems::whatIsNoCheckedButton()
{
    Form form;
    form.check->setChecked(true);
    QCOMPARE(IsDlgButtonChecked_X(&form, idCheck), 0u); // without a wrapper
    QCOMPARE(IsDlgButtonChecked_X(nullptr, idCheck), 0u);

    QRadioButton* const radio = add<QRadioButton>(&form, "IDC_ABSENT");
    radio->setChecked(true);
    LastTextWindow wrapper;
    wrapper.SubclassWindow(radio);
    wrapper.ModifyStyle(0, 5);
    QCOMPARE(IsDlgButtonChecked_X(&form, idAbsent), 0u);
}

// --------------------------------------------------------------------------------------------------------------- edits

void tst_DlgItems::selectAll()
{
    QLineEdit edit(QStringLiteral("abc"));
    QCOMPARE(SetEditSelectAll_X(&edit), 1);
    QCOMPARE(edit.selectedText(), QStringLiteral("abc"));

    QTextEdit textEdit(QStringLiteral("abc"));
    QCOMPARE(SetEditSelectAll_X(&textEdit), 1);
    QCOMPARE(textEdit.textCursor().selectedText(), QStringLiteral("abc"));

    QComboBox box;
    box.setEditable(true);
    box.setEditText(QStringLiteral("abc"));
    QCOMPARE(SetEditSelectAll_X(&box), 1);
    QCOMPARE(box.lineEdit()->selectedText(), QStringLiteral("abc"));

    QSpinBox spinBox;
    spinBox.setValue(12);
    QCOMPARE(SetEditSelectAll_X(&spinBox), 1);
    QCOMPARE(spinBox.findChild<QLineEdit*>()->selectedText(), QStringLiteral("12"));
}

void tst_DlgItems::selectAllKinds_data()
{
    QTest::addColumn<MakeWidget>("makeWidget");
    QTest::addColumn<int>("result");
    QTest::newRow("double spin box") << MakeWidget(makeItem<QDoubleSpinBox>) << 1;
    QTest::newRow("date edit") << MakeWidget(makeItem<QDateEdit>) << 1;
    QTest::newRow("text browser") << MakeWidget(makeItem<QTextBrowser>) << 1;
    QTest::newRow("editable combo box") << MakeWidget(makeBox<true>) << 1;
    QTest::newRow("combo box that is not editable") << MakeWidget(makeBox<false>) << 0;
    QTest::newRow("plain text edit") << MakeWidget(makeItem<QPlainTextEdit>) << 0;
    QTest::newRow("label") << MakeWidget(makeItem<QLabel>) << 0;
    QTest::newRow("null") << MakeWidget([]() -> QWidget* { return nullptr; }) << 0;
}

void tst_DlgItems::selectAllKinds()
{
    QFETCH(MakeWidget, makeWidget);
    const std::unique_ptr<QWidget> widget(makeWidget());
    QTEST(SetEditSelectAll_X(widget.get()), "result");
}

void tst_DlgItems::limitText_data()
{
    QTest::addColumn<MakeWidget>("makeWidget");
    QTest::addColumn<int>("result");
    QTest::newRow("line edit") << MakeWidget(makeItem<QLineEdit>) << 1;
    QTest::newRow("editable combo box") << MakeWidget(makeBox<true>) << 1;
    QTest::newRow("combo box that is not editable") << MakeWidget(makeBox<false>) << 0;
    QTest::newRow("spin box: its line edit stays as it is") << MakeWidget(makeItem<QSpinBox>) << 0;
    QTest::newRow("text edit") << MakeWidget(makeItem<QTextEdit>) << 0;
    QTest::newRow("null") << MakeWidget([]() -> QWidget* { return nullptr; }) << 0;
}

void tst_DlgItems::limitText()
{
    QFETCH(MakeWidget, makeWidget);
    QFETCH(int, result);
    const std::unique_ptr<QWidget> widget(makeWidget());
    QCOMPARE(SetEditLimitText_X(widget.get(), 5), result);
    auto* edit = qobject_cast<QLineEdit*>(widget.get());
    if (!edit && widget)
        edit = widget->findChild<QLineEdit*>();
    if (edit)
        QCOMPARE(edit->maxLength(), result ? 5 : 32767);
}

XE_TEST(tst_DlgItems)
#include "tst_dlgitems.moc"
