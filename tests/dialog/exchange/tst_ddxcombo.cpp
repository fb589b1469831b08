// Combo boxes and variables.

#include "exchangewindow.h"
#include "testclass.h"

#include <leavenothing.h>

#include <xeafxdlg.h>

namespace {

struct ComboForm
{
    ComboForm() : window(&widget)
    {
        box = new QComboBox(&widget);
        box->addItems({QStringLiteral("bolt"), QStringLiteral("Bolt"), QStringLiteral("bolt long")});
    }

    QWidget widget;
    QComboBox* box;
    ExchangeWindow window;
};

class SignalCount
{
public:
    explicit SignalCount(QComboBox* box)
    {
        const auto add = [this] { ++count; };
        QObject::connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), &m_context, add);
        QObject::connect(box, &QComboBox::currentTextChanged, &m_context, add);
        QObject::connect(box, &QComboBox::editTextChanged, &m_context, add);
        QObject::connect(box, QOverload<int>::of(&QComboBox::activated), &m_context, add);
    }

    int count = 0;

private:
    QObject m_context;
};

} // namespace

class tst_DdxCombo : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void comboIndex_data();
    void comboIndex();
    void comboIndexSaved();
    void comboText_data();
    void comboText();
    void comboTextSaved();
    void comboTextIsFoundByTheWholeText();
    void comboLoadsInSilence_data();
    void comboLoadsInSilence();
    void textOfALineEdit();
};

void tst_DdxCombo::comboIndex_data()
{
    QTest::addColumn<bool>("editable");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("row");
    for (const bool editable : {false, true}) {
        const char* const kind = editable ? "editable" : "list";
        QTest::addRow("%s: a row", kind) << editable << 2 << 2;
        QTest::addRow("%s: no row", kind) << editable << -1 << -1;
        QTest::addRow("%s: past the end", kind) << editable << 9 << -1;
    }
}

void tst_DdxCombo::comboIndex()
{
    QFETCH(bool, editable);
    QFETCH(int, value);
    ComboForm form;
    form.box->setEditable(editable);
    const SignalCount signalCount(form.box);
    QCOMPARE(form.window.load([&](CDataExchange_X* exchange) { DDX_CBIndex(exchange, form.box, value); }), 1);
    QTEST(form.box->currentIndex(), "row");
    QCOMPARE(signalCount.count, 0);
    QVERIFY(!form.box->signalsBlocked());
    if (editable)
        QCOMPARE(form.box->lineEdit()->cursorPosition(), 0);
}

void tst_DdxCombo::comboIndexSaved()
{
    ComboForm form;
    int value = 99;
    const auto exchangeValue = [&](CDataExchange_X* exchange) { DDX_CBIndex(exchange, form.box, value); };
    for (const int row : {1, -1, 0}) {
        form.box->setCurrentIndex(row);
        QCOMPARE(form.window.save(exchangeValue), 1);
        QCOMPARE(value, row);
    }
}

void tst_DdxCombo::comboText_data()
{
    QTest::addColumn<bool>("editable");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("row");
    const auto row = [](const char* name, bool editable, const char* value, const char* text, int index) {
        QTest::newRow(name) << editable << QString::fromUtf8(value) << QString::fromUtf8(text) << index;
    };
    row("list: a row", false, "bolt long", "bolt long", 2);
    row("list: in the other case", false, "Bolt", "Bolt", 1);
    row("list: no such row", false, "nut", "bolt", 0);
    row("list: a prefix is no row", false, "bolt l", "bolt", 0);
    row("editable: a row", true, "bolt long", "bolt long", 2);
    row("editable: in the other case", true, "Bolt", "Bolt", 1);
    row("editable: a case of its own", true, "BOLT", "BOLT", 0);
    row("editable: a text of its own", true, "螺栓", "螺栓", 0);
    row("editable: empty", true, "", "", 0);
}

void tst_DdxCombo::comboText()
{
    QFETCH(bool, editable);
    QFETCH(QString, value);
    using ExchangeText = void (*)(CDataExchange_X*, QComboBox*, CString_X&);
    for (const ExchangeText exchangeText : {ExchangeText(&DDX_CBString), ExchangeText(&DDX_CBStringExact)}) {
        ComboForm form;
        form.box->setEditable(editable);
        const SignalCount signalCount(form.box);
        CString_X variable(value);
        QCOMPARE(form.window.load([&](CDataExchange_X* exchange) { exchangeText(exchange, form.box, variable); }), 1);
        QTEST(form.box->currentText(), "text");
        QTEST(form.box->currentIndex(), "row");
        QCOMPARE(signalCount.count, 0);
        QVERIFY(!form.box->signalsBlocked());
        if (editable)
            QCOMPARE(form.box->lineEdit()->cursorPosition(), 0);
        QCOMPARE(form.box->count(), 3);
    }
}

void tst_DdxCombo::comboTextSaved()
{
    ComboForm form;
    form.box->setEditable(true);
    CString_X value;
    CString_X exactValue;
    const auto exchangeBoth = [&](CDataExchange_X* exchange) {
        DDX_CBString(exchange, form.box, value);
        DDX_CBStringExact(exchange, form.box, exactValue);
    };
    for (const QString& text : {QStringLiteral("bolt long"), QStringLiteral("螺栓 😀"), QString()}) {
        form.box->setCurrentText(text);
        QCOMPARE(form.window.save(exchangeBoth), 1);
        QCOMPARE(XeQString(value), text);
        QCOMPARE(XeQString(exactValue), text);
    }
}

// The first row of the text, among rows that contain it.
void tst_DdxCombo::comboTextIsFoundByTheWholeText()
{
    ComboForm form;
    form.box->setEditable(true);
    form.box->addItem(QStringLiteral("long"));
    CString_X value(L"long");
    QCOMPARE(form.window.load([&](CDataExchange_X* exchange) { DDX_CBString(exchange, form.box, value); }), 1);
    QCOMPARE(form.box->currentIndex(), 3);
}

void tst_DdxCombo::comboLoadsInSilence_data()
{
    QTest::addColumn<bool>("editable");
    QTest::newRow("list") << false;
    QTest::newRow("editable") << true;
}

// The same steps by hand are heard: the test can fail.
void tst_DdxCombo::comboLoadsInSilence()
{
    QFETCH(bool, editable);
    ComboForm form;
    form.box->setEditable(editable);
    const SignalCount signalCount(form.box);
    int index = 1;
    CString_X text(L"bolt long");
    QCOMPARE(form.window.load([&](CDataExchange_X* exchange) {
        DDX_CBIndex(exchange, form.box, index);
        DDX_CBString(exchange, form.box, text);
    }),
             1);
    QCOMPARE(signalCount.count, 0);
    form.box->setCurrentIndex(1);
    QVERIFY(signalCount.count > 0);
}

void tst_DdxCombo::textOfALineEdit()
{
    QWidget widget;
    auto* const edit = new QLineEdit(QStringLiteral("old"), &widget);
    ExchangeWindow window(&widget);
    CString_X value(L"螺栓 😀");
    const auto exchangeValue = [&](CDataExchange_X* exchange) { DDX_CBString(exchange, edit, value); };
    QCOMPARE(window.load(exchangeValue), 1);
    QCOMPARE(edit->text(), QStringLiteral("螺栓 😀"));
    QCOMPARE(edit->cursorPosition(), 0);
    edit->setText(QStringLiteral("new"));
    QCOMPARE(window.save(exchangeValue), 1);
    QCOMPARE(value, CString_X(L"new"));
}

XE_TEST(tst_DdxCombo)
#include "tst_ddxcombo.moc"
