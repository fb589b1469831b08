// The run of a data exchange: UpdateData(), and what Fail() does to the control and the user.

#include "boxwatch.h"
#include "exchangewindow.h"
#include "testclass.h"

#include <leavenothing.h>
#include <modaldriver.h>
#include <xeafxdlg.h>
#include <xeexcept.h>

#include <QPushButton>
#include <QSpinBox>
#include <QTextEdit>

class tst_Exchange : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void fields();
    void items();
    void withoutADialog();

    void windowWithoutAnExchange();
    void direction();
    void anyExceptionGivesTheExchangeUp();
    void windowWithoutAWidget();

    void failThrowsAQString_data();
    void failThrowsAQString();
    void failureIsToldAfterTheExchange();
    void failureWithoutAMessage_data();
    void failureWithoutAMessage();
    void failureWithoutAControl();
    void failureWhenLoading();
    void whatStandsBehindAFailureIsNotDone();
    void twoFailuresShowOneBox();
    void failureIsForTheControlPreparedLast();
    void selectedText_data();
    void selectedText();
    void boxIsOwnedByTheWindow();
    void boxGoesWithItsWindow();
};

// ------------------------------------------------------------------------------------------------------- the exchange

void tst_Exchange::fields()
{
    QWidget widget;
    CWnd_X window;
    QVERIFY(window.SubclassWindow(&widget));
    CDataExchange_X exchange(&window, 7);
    QCOMPARE(exchange.m_bSaveAndValidate, 7);
    QCOMPARE(exchange.m_pDlgWnd, &window);
    QCOMPARE(exchange.m_pCurCtrl, nullptr);
    exchange.PrepareCtrl(&widget);
    QCOMPARE(exchange.m_pCurCtrl, &widget);
    QCOMPARE(exchange.GetDlgQWidget(), &widget);
}

void tst_Exchange::items()
{
    QWidget widget;
    auto* const panel = new QWidget(&widget);
    auto* const item = new QLineEdit(panel);
    item->setObjectName(QStringLiteral("名"));
    CWnd_X window;
    QVERIFY(window.SubclassWindow(&widget));
    const CDataExchange_X exchange(&window, FALSE);
    QCOMPARE(exchange.GetDlgItem("名"), item);
    QCOMPARE(exchange.GetDlgItem(QByteArray("名")), item);
    QCOMPARE(exchange.FindControl(QStringLiteral("名")), item);
    QCOMPARE(exchange.FindControl(QString()), nullptr);
    QCOMPARE(exchange.GetDlgItem("other"), nullptr);
    QCOMPARE(exchange.GetDlgItem(""), nullptr);
    QCOMPARE(exchange.GetDlgItem(nullptr), nullptr);
}

void tst_Exchange::withoutADialog()
{
    QLineEdit edit;
    CDataExchange_X exchange(nullptr, TRUE);
    QCOMPARE(exchange.GetDlgQWidget(), nullptr);
    QCOMPARE(exchange.GetDlgItem("name"), nullptr);
    exchange.PrepareCtrl(&edit);
    QVERIFY_EXCEPTION_THROWN(exchange.Fail(L"message"), QString);
}

// --------------------------------------------------------------------------------------------------------- UpdateData

void tst_Exchange::windowWithoutAnExchange()
{
    QWidget widget;
    CWnd_X window;
    QVERIFY(window.SubclassWindow(&widget));
    QCOMPARE(window.UpdateData(TRUE), 1);
    QCOMPARE(window.UpdateData(FALSE), 1);
    CDialog_X dialog;
    QCOMPARE(dialog.UpdateData(TRUE), 1);
}

void tst_Exchange::direction()
{
    QWidget widget;
    ExchangeWindow window(&widget);
    QVector<int> directions;
    const auto note = [&](CDataExchange_X* exchange) {
        QCOMPARE(exchange->m_pDlgWnd, &window);
        QCOMPARE(exchange->m_pCurCtrl, nullptr);
        directions += exchange->m_bSaveAndValidate;
    };
    QCOMPARE(window.load(note), 1);
    QCOMPARE(window.save(note), 1);
    QCOMPARE(window.UpdateData(), 1);
    QCOMPARE(directions, (QVector<int>{0, 1, 1}));
}

void tst_Exchange::anyExceptionGivesTheExchangeUp()
{
    QWidget widget;
    ExchangeWindow window(&widget);
    QCOMPARE(window.save([](CDataExchange_X*) { throw QStringLiteral("other text"); }), 0);
    QCOMPARE(window.save([](CDataExchange_X*) { throw std::runtime_error("error"); }), 0);
    QCOMPARE(window.save([](CDataExchange_X*) { throw 5; }), 0);
    QCOMPARE(window.load([](CDataExchange_X*) { throw 5; }), 0);

    static int deleted;
    struct Counted : CUserException_X
    {
        ~Counted() override { ++deleted; }
    };
    deleted = 0;
    QCOMPARE(window.save([](CDataExchange_X*) { throw static_cast<CException_X*>(new Counted); }), 0);
    QCOMPARE(deleted, 1);                                                          // nobody else could delete it
    QCOMPARE(window.save([](CDataExchange_X*) { AfxThrowUserException_X(); }), 0); // the one of the library stays
}

void tst_Exchange::windowWithoutAWidget()
{
    ExchangeWindow window(nullptr);
    int value = 5;
    QLineEdit edit;
    edit.setText(QStringLiteral("6"));
    QCOMPARE(window.save([&](CDataExchange_X* exchange) { DDX_Text(exchange, &edit, value); }), 1);
    QCOMPARE(value, 6);
    QTest::ignoreMessage(QtWarningMsg, "Data exchange of CWnd_X: there is no QWidget named \"name\"");
    QCOMPARE(window.save([&](CDataExchange_X* exchange) { DDX_Text(exchange, "name", value); }), 1);
    QCOMPARE(value, 6);
}

// --------------------------------------------------------------------------------------------------------------- Fail

void tst_Exchange::failThrowsAQString_data()
{
    QTest::addColumn<int>("save");
    QTest::addColumn<bool>("prepared");
    QTest::newRow("saving") << TRUE << true;
    QTest::newRow("saving without a control") << TRUE << false;
    QTest::newRow("loading") << FALSE << true;
    QTest::newRow("loading without a control") << FALSE << false;
}

void tst_Exchange::failThrowsAQString()
{
    QFETCH(int, save);
    QFETCH(bool, prepared);
    QWidget widget;
    CWnd_X window;
    QVERIFY(window.SubclassWindow(&widget));
    BoxWatch watch;
    CDataExchange_X exchange(&window, save);
    exchange.PrepareCtrl(prepared ? &widget : nullptr);
    QString thrown;
    try {
        exchange.Fail(L"message");
    } catch (const QString& text) {
        thrown = text;
    }
    QCOMPARE(thrown, QStringLiteral("DataExchange Error"));
    QCOMPARE(watch.take(), save && prepared ? QStringLiteral("警告: message") : QString());
}

void tst_Exchange::failureIsToldAfterTheExchange()
{
    QWidget widget;
    auto* const edit = new QLineEdit(QStringLiteral("twelve"), &widget);
    auto* const other = new QLineEdit(&widget);
    widget.show();
    QVERIFY(QTest::qWaitForWindowActive(&widget));
    other->setFocus();
    ExchangeWindow window(&widget);
    int value = 5;
    QCOMPARE(window.save([&](CDataExchange_X* exchange) { DDX_Text(exchange, edit, value); }), 0);
    QVERIFY(!QApplication::activeModalWidget());
    QVERIFY(edit->hasFocus());
    QCOMPARE(edit->selectedText(), QStringLiteral("twelve"));
    QCOMPARE(value, 5);

    QString shown;
    const ModalDriver<QMessageBox> driver([&shown](QMessageBox* box) {
        shown = box->windowTitle() + QStringLiteral(": ") + box->text();
        box->accept();
    });
    QTRY_VERIFY(driver.hasActed());
    QCOMPARE(shown, QStringLiteral("警告: 请输入正确的数值！"));
    QCOMPARE(widget.focusWidget(), edit);
}

void tst_Exchange::failureWithoutAMessage_data()
{
    QTest::addColumn<bool>("isNull");
    QTest::newRow("null") << true;
    QTest::newRow("empty") << false;
}

// No box, and yet the control is shown to the user.
void tst_Exchange::failureWithoutAMessage()
{
    QFETCH(bool, isNull);
    QWidget widget;
    auto* const other = new QLineEdit(&widget);
    auto* const edit = new QLineEdit(QStringLiteral("text"), &widget);
    other->setFocus();
    ExchangeWindow window(&widget);
    BoxWatch watch;
    QCOMPARE(window.save([=](CDataExchange_X* exchange) {
        exchange->PrepareCtrl(edit);
        exchange->Fail(isNull ? nullptr : L"");
    }),
             0);
    QCOMPARE(widget.focusWidget(), edit);
    QCOMPARE(edit->selectedText(), QStringLiteral("text"));
    QCOMPARE(watch.take(), QString());
}

void tst_Exchange::failureWithoutAControl()
{
    QWidget widget;
    ExchangeWindow window(&widget);
    BoxWatch watch;
    QCOMPARE(window.save([](CDataExchange_X* exchange) { exchange->Fail(L"message"); }), 0);
    QCOMPARE(watch.take(), QString());
}

void tst_Exchange::failureWhenLoading()
{
    QWidget widget;
    auto* const other = new QLineEdit(&widget);
    auto* const edit = new QLineEdit(QStringLiteral("text"), &widget);
    other->setFocus();
    ExchangeWindow window(&widget);
    BoxWatch watch;
    QCOMPARE(window.load([edit](CDataExchange_X* exchange) {
        exchange->PrepareCtrl(edit);
        exchange->Fail(L"message");
    }),
             0);
    QCOMPARE(widget.focusWidget(), other);
    QVERIFY(!edit->hasSelectedText());
    QCOMPARE(watch.take(), QString());
}

void tst_Exchange::whatStandsBehindAFailureIsNotDone()
{
    QWidget widget;
    auto* const wrong = new QLineEdit(QStringLiteral("x"), &widget);
    auto* const right = new QLineEdit(QStringLiteral("2"), &widget);
    ExchangeWindow window(&widget);
    BoxWatch watch;
    int first = 0;
    int second = 0;
    int third = 0;
    QCOMPARE(window.save([&](CDataExchange_X* exchange) {
        DDX_Text(exchange, right, first);
        DDX_Text(exchange, wrong, second);
        DDX_Text(exchange, right, third);
    }),
             0);
    QCOMPARE(first, 2);
    QCOMPARE(second, 0);
    QCOMPARE(third, 0);
    QCOMPARE(watch.take(), QStringLiteral("警告: 请输入正确的数值！"));
}

void tst_Exchange::twoFailuresShowOneBox()
{
    QWidget widget;
    auto* const edit = new QLineEdit(&widget);
    ExchangeWindow window(&widget);
    BoxWatch watch;
    const auto fail = [edit](const wchar_t* message) {
        return [=](CDataExchange_X* exchange) {
            exchange->PrepareCtrl(edit);
            exchange->Fail(message);
        };
    };
    QCOMPARE(window.save(fail(L"first")), 0);
    QCOMPARE(window.save(fail(L"second")), 0);
    QCOMPARE(watch.take(), QStringLiteral("警告: first"));
    QCOMPARE(window.save(fail(L"third")), 0);
    QCOMPARE(watch.take(), QStringLiteral("警告: third"));
}

void tst_Exchange::failureIsForTheControlPreparedLast()
{
    QWidget widget;
    auto* const first = new QLineEdit(QStringLiteral("1"), &widget);
    auto* const second = new QSlider(&widget);
    second->setFocusPolicy(Qt::StrongFocus);
    ExchangeWindow window(&widget);
    BoxWatch watch;
    CString_X text;
    int value = 0;
    QCOMPARE(window.save([&](CDataExchange_X* exchange) {
        DDX_Text(exchange, first, text);
        DDX_Slider(exchange, second, value);
        DDV_MinMaxInt(exchange, value, 1, 5);
    }),
             0);
    QCOMPARE(widget.focusWidget(), second);
    QVERIFY(!first->hasSelectedText());
    QCOMPARE(watch.take(), QStringLiteral("警告: 请填入一个1和5之间的整数。"));
}

void tst_Exchange::selectedText_data()
{
    QTest::addColumn<QString>("className");
    QTest::newRow("line edit") << QStringLiteral("QLineEdit");
    QTest::newRow("editable combo box") << QStringLiteral("QComboBox");
    QTest::newRow("text edit") << QStringLiteral("QTextEdit");
    QTest::newRow("spin box") << QStringLiteral("QSpinBox");
    QTest::newRow("nothing to select") << QStringLiteral("QPushButton");
}

void tst_Exchange::selectedText()
{
    QFETCH(QString, className);
    QWidget widget;
    auto* const edit = new QLineEdit(&widget);
    auto* const box = new QComboBox(&widget);
    box->setEditable(true);
    auto* const textEdit = new QTextEdit(&widget);
    auto* const spinBox = new QSpinBox(&widget);
    new QPushButton(&widget);
    edit->setText(QStringLiteral("42"));
    box->setCurrentText(QStringLiteral("42"));
    textEdit->setPlainText(QStringLiteral("42"));
    spinBox->setValue(42);

    QWidget* control = nullptr;
    for (auto* child : widget.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (QLatin1String(child->metaObject()->className()) == className)
            control = child;
    }
    QVERIFY(control);
    ExchangeWindow window(&widget);
    QCOMPARE(window.save([control](CDataExchange_X* exchange) {
        exchange->PrepareCtrl(control);
        exchange->Fail();
    }),
             0);
    const QStringList selected{edit->selectedText(), box->lineEdit()->selectedText(),
                               textEdit->textCursor().selectedText(), spinBox->findChild<QLineEdit*>()->selectedText()};
    const QStringList names{QStringLiteral("QLineEdit"), QStringLiteral("QComboBox"), QStringLiteral("QTextEdit"),
                            QStringLiteral("QSpinBox")};
    for (int i = 0; i < names.size(); ++i)
        QCOMPARE(selected[i], names[i] == className ? QStringLiteral("42") : QString());
}

void tst_Exchange::boxIsOwnedByTheWindow()
{
    QWidget widget;
    auto* const edit = new QLineEdit(&widget);
    ExchangeWindow window(&widget);
    QWidget* owner = nullptr;
    const ModalDriver<QMessageBox> driver([&owner](QMessageBox* box) {
        owner = box->parentWidget();
        box->accept();
    });
    QCOMPARE(window.save([edit](CDataExchange_X* exchange) {
        exchange->PrepareCtrl(edit);
        exchange->Fail(L"message");
    }),
             0);
    QTRY_VERIFY(driver.hasActed());
    QCOMPARE(owner, &widget);
}

void tst_Exchange::boxGoesWithItsWindow()
{
    BoxWatch watch;
    {
        QWidget widget;
        QLineEdit edit(&widget);
        ExchangeWindow window(&widget);
        QCOMPARE(window.save([&edit](CDataExchange_X* exchange) {
            exchange->PrepareCtrl(&edit);
            exchange->Fail(L"message");
        }),
                 0);
    }
    QCOMPARE(watch.take(), QString());
}

XE_TEST(tst_Exchange)
#include "tst_exchange.moc"
