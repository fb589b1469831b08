// Controls that are not there, or are of another class: the exchange is given up, with a warning and without a box; but
// texts and radio buttons are passed over.

#include "boxwatch.h"
#include "exchangewindow.h"
#include "resource.h"
#include "testclass.h"

#include <leavenothing.h>
#include <xeafxdlg.h>

#include <QLabel>

namespace {

// The variables of an exchange that must not change them.
struct Variables
{
    CString_X text = L"text";
    int number = 99;
    CWnd_X member;

    bool areUntouched() const { return text == CString_X(L"text") && number == 99 && !member.GetSafeHwnd(); }
};

// An exchange function with its control named by `Key`.
template <class Key>
struct Function
{
    const char* name;
    const char* control; // the class it wants
    std::function<void(CDataExchange_X*, Key, Variables&)> exchange;
    bool survives = false; // goes on without the control
};

template <class Key>
QVector<Function<Key>> functions()
{
    using Exchange = CDataExchange_X;
    return {
        {"DDX_Text", "QWidget", [](Exchange* exchange, Key key, Variables& v) { DDX_Text(exchange, key, v.text); },
         true},
        {"DDX_Text of a number", "QWidget",
         [](Exchange* exchange, Key key, Variables& v) { DDX_Text(exchange, key, v.number); }, true},
        {"DDX_Check", "QAbstractButton",
         [](Exchange* exchange, Key key, Variables& v) { DDX_Check(exchange, key, v.number); }},
        {"DDX_Radio", "QRadioButton",
         [](Exchange* exchange, Key key, Variables& v) { DDX_Radio(exchange, key, v.number); }, true},
        {"DDX_CBIndex", "QComboBox",
         [](Exchange* exchange, Key key, Variables& v) { DDX_CBIndex(exchange, key, v.number); }},
        {"DDX_CBString", "QComboBox",
         [](Exchange* exchange, Key key, Variables& v) { DDX_CBString(exchange, key, v.text); }},
        {"DDX_CBStringExact", "QComboBox",
         [](Exchange* exchange, Key key, Variables& v) { DDX_CBStringExact(exchange, key, v.text); }},
        {"DDX_Scroll", "QScrollBar",
         [](Exchange* exchange, Key key, Variables& v) { DDX_Scroll(exchange, key, v.number); }},
        {"DDX_Slider", "QSlider",
         [](Exchange* exchange, Key key, Variables& v) { DDX_Slider(exchange, key, v.number); }},
        {"DDX_Control", "QWidget",
         [](Exchange* exchange, Key key, Variables& v) { DDX_Control(exchange, key, v.member); }},
    };
}

using Exchange = std::function<void(CDataExchange_X*, Variables&)>;

void warnAbout(const char* control, const char* name)
{
    QTest::ignoreMessage(
        QtWarningMsg,
        qPrintable(QStringLiteral("Data exchange of CWnd_X: there is no %1 named \"%2\"").arg(control, name)));
}

// A form with an edit behind each of whose names an exchange with another class looks.
class EditForm
{
public:
    EditForm() : edit(&widget), window(&widget) { edit.setObjectName(QStringLiteral("IDC_NAME")); }

    // Each direction gives up with the warning; nothing else happens.
    void failsQuietly(const Exchange& exchange, const char* control, const char* name)
    {
        endsQuietly(exchange, control, name, 0);
    }

    // Each direction ends with the result after the warning; nothing else happens.
    void endsQuietly(const Exchange& exchange, const char* control, const char* name, int result)
    {
        Variables variables;
        BoxWatch watch;
        const auto run = [&](CDataExchange_X* dataExchange) {
            dataExchange->PrepareCtrl(&edit); // the control before this one has nothing to do with it
            exchange(dataExchange, variables);
        };
        warnAbout(control, name);
        QCOMPARE(window.load(run), result);
        warnAbout(control, name);
        QCOMPARE(window.save(run), result);
        QVERIFY(variables.areUntouched());
        QVERIFY(!edit.hasSelectedText());
        QCOMPARE(watch.take(), QString());
    }

    QWidget widget;
    QLineEdit edit{QStringLiteral("12"), nullptr};
    ExchangeWindow window;
};

} // namespace
Q_DECLARE_METATYPE(Exchange)

class tst_DdxMissing : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void unknownName_data();
    void unknownName();
    void unknownId_data();
    void unknownId();
    void wrongClass_data();
    void wrongClass();
    void idThatIsNoNameIsNotTakenForOne();
    void groupBoxHasNoName();
    void lineEditIsNoComboBoxByName();
    void nullControl_data();
    void nullControl();
    void nullControlOfDdxControl();
    void aControlOfTheHostsOwnFunction();
    void dialogDoesNotOpen();
};

void tst_DdxMissing::unknownName_data()
{
    QTest::addColumn<Exchange>("exchange");
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("result");
    for (const auto& function : functions<const char*>()) {
        const auto row = [&function](const char* what, const char* key, const char* name) {
            const auto exchange = [function, key](CDataExchange_X* dataExchange, Variables& variables) {
                function.exchange(dataExchange, key, variables);
            };
            QTest::addRow("%s: %s", function.name, what) << Exchange(exchange) << QString::fromLatin1(function.control)
                                                         << QString::fromLatin1(name) << int(function.survives);
        };
        row("unknown", "unknown", "unknown");
        row("empty", "", "");
        row("null", nullptr, "");
    }
}

void tst_DdxMissing::unknownName()
{
    QFETCH(Exchange, exchange);
    QFETCH(QString, control);
    QFETCH(QString, name);
    QFETCH(int, result);
    EditForm().endsQuietly(exchange, qPrintable(control), qPrintable(name), result);
}

void tst_DdxMissing::unknownId_data()
{
    QTest::addColumn<Exchange>("exchange");
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("result");
    for (const auto& function : functions<int>()) {
        const auto row = [&function](const char* what, int id, const char* name) {
            const auto exchange = [function, id](CDataExchange_X* dataExchange, Variables& variables) {
                function.exchange(dataExchange, id, variables);
            };
            QTest::addRow("%s: %s", function.name, what) << Exchange(exchange) << QString::fromLatin1(function.control)
                                                         << QString::fromLatin1(name) << int(function.survives);
        };
        row("not in the table", 4711, "4711");
        row("zero", 0, "0");
        row("negative", -1, "-1");
        row("no such control", IDC_SLIDER, "IDC_SLIDER");
    }
}

void tst_DdxMissing::unknownId()
{
    QFETCH(Exchange, exchange);
    QFETCH(QString, control);
    QFETCH(QString, name);
    QFETCH(int, result);
    EditForm().endsQuietly(exchange, qPrintable(control), qPrintable(name), result);
}

void tst_DdxMissing::wrongClass_data()
{
    QTest::addColumn<Exchange>("byName");
    QTest::addColumn<Exchange>("byId");
    QTest::addColumn<QString>("control");
    QTest::addColumn<int>("result");
    const auto byName = functions<const char*>();
    const auto byId = functions<int>();
    for (int i = 0; i < byName.size(); ++i) {
        if (qstrcmp(byName[i].control, "QWidget") == 0)
            continue; // takes any
        const auto name = [function = byName[i]](CDataExchange_X* dataExchange, Variables& variables) {
            function.exchange(dataExchange, "IDC_NAME", variables);
        };
        const auto id = [function = byId[i]](CDataExchange_X* dataExchange, Variables& variables) {
            function.exchange(dataExchange, IDC_NAME, variables);
        };
        QTest::newRow(byName[i].name) << Exchange(name) << Exchange(id) << QString::fromLatin1(byName[i].control)
                                      << int(byName[i].survives);
    }
}

void tst_DdxMissing::wrongClass()
{
    QFETCH(Exchange, byName);
    QFETCH(Exchange, byId);
    QFETCH(QString, control);
    QFETCH(int, result);
    EditForm form;
    form.endsQuietly(byName, qPrintable(control), "IDC_NAME", result);
    form.endsQuietly(byId, qPrintable(control), "IDC_NAME", result);
}

void tst_DdxMissing::idThatIsNoNameIsNotTakenForOne()
{
    EditForm form;
    form.edit.setObjectName(QStringLiteral("4711"));
    form.endsQuietly(
        [](CDataExchange_X* exchange, Variables& variables) { DDX_Text(exchange, 4711, variables.number); }, "QWidget",
        "4711", 1);
}

void tst_DdxMissing::groupBoxHasNoName()
{
    EditForm form;
    QGroupBox box(&form.widget);
    box.setObjectName(QStringLiteral("group"));
    form.failsQuietly(
        [](CDataExchange_X* exchange, Variables& variables) { DDX_Check(exchange, "group", variables.number); },
        "QAbstractButton", "group");
}

void tst_DdxMissing::lineEditIsNoComboBoxByName()
{
    EditForm form;
    form.failsQuietly(
        [](CDataExchange_X* exchange, Variables& variables) { DDX_CBString(exchange, "IDC_NAME", variables.text); },
        "QComboBox", "IDC_NAME");
}

void tst_DdxMissing::nullControl_data()
{
    QTest::addColumn<Exchange>("exchange");
    QTest::addColumn<QString>("control");
    const auto row = [](const char* name, const char* control, Exchange exchange) {
        QTest::newRow(name) << exchange << QString::fromLatin1(control);
    };
    row("DDX_Check", "QAbstractButton", [](CDataExchange_X* exchange, Variables& v) {
        DDX_Check(exchange, static_cast<QAbstractButton*>(nullptr), v.number);
    });
    row("DDX_Check of a group box", "QGroupBox", [](CDataExchange_X* exchange, Variables& v) {
        DDX_Check(exchange, static_cast<QGroupBox*>(nullptr), v.number);
    });
    row("DDX_CBIndex", "QComboBox", [](CDataExchange_X* exchange, Variables& v) {
        DDX_CBIndex(exchange, static_cast<QComboBox*>(nullptr), v.number);
    });
    row("DDX_CBString", "QComboBox", [](CDataExchange_X* exchange, Variables& v) {
        DDX_CBString(exchange, static_cast<QComboBox*>(nullptr), v.text);
    });
    row("DDX_CBString of a line edit", "QLineEdit", [](CDataExchange_X* exchange, Variables& v) {
        DDX_CBString(exchange, static_cast<QLineEdit*>(nullptr), v.text);
    });
    row("DDX_CBStringExact", "QComboBox", [](CDataExchange_X* exchange, Variables& v) {
        DDX_CBStringExact(exchange, static_cast<QComboBox*>(nullptr), v.text);
    });
    row("DDX_Scroll", "QScrollBar", [](CDataExchange_X* exchange, Variables& v) {
        DDX_Scroll(exchange, static_cast<QScrollBar*>(nullptr), v.number);
    });
    row("DDX_Slider", "QSlider", [](CDataExchange_X* exchange, Variables& v) {
        DDX_Slider(exchange, static_cast<QSlider*>(nullptr), v.number);
    });
}

void tst_DdxMissing::nullControl()
{
    QFETCH(Exchange, exchange);
    QFETCH(QString, control);
    EditForm().failsQuietly(exchange, qPrintable(control), "");
}

// There is nothing to wrap, and nothing that could not be done.
void tst_DdxMissing::nullControlOfDdxControl()
{
    EditForm form;
    Variables variables;
    const auto exchangeNothing = [&](CDataExchange_X* exchange) {
        DDX_Control(exchange, static_cast<QWidget*>(nullptr), variables.member);
    };
    QCOMPARE(form.window.load(exchangeNothing), 1);
    QCOMPARE(form.window.save(exchangeNothing), 1);
    QVERIFY(variables.areUntouched());
}

// The lookup that hosts write exchange functions with.
void tst_DdxMissing::aControlOfTheHostsOwnFunction()
{
    EditForm form;
    enum { FieldId = IDC_NAME };
    const auto found = [&](CDataExchange_X* exchange) {
        QCOMPARE(exchange->LookUpControl<QLineEdit>("IDC_NAME"), &form.edit);
        QCOMPARE(exchange->LookUpControl<QLineEdit>(IDC_NAME), &form.edit);
        QCOMPARE(exchange->LookUpControl<QWidget>(FieldId), &form.edit);
        QCOMPARE(&exchange->RequireControl<QLineEdit>("IDC_NAME"), &form.edit);
    };
    QCOMPARE(form.window.load(found), 1);
    const auto missing = [&](CDataExchange_X* exchange) {
        warnAbout("QLabel", "IDC_NAME");
        QCOMPARE(exchange->LookUpControl<QLabel>(IDC_NAME), nullptr);
        warnAbout("QLabel", "4711");
        exchange->RequireControl<QLabel>(4711);
        QFAIL("gone on without the control");
    };
    QCOMPARE(form.window.load(missing), 0);
}

void tst_DdxMissing::dialogDoesNotOpen()
{
    class PartDialog : public CDialog_X
    {
    public:
        void DoDataExchange(CDataExchange_X* exchange) override { DDX_Check(exchange, "unknown", m_number); }

    private:
        int m_number = 5;
    } dialog;
    QTest::ignoreMessage(QtWarningMsg, "Data exchange of CDialog_X: there is no QAbstractButton named \"unknown\"");
    QCOMPARE(dialog.DoModal(), 3);
}

XE_TEST(tst_DdxMissing)
#include "tst_ddxmissing.moc"
