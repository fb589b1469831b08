// Radio buttons and a variable.

#include "exchangewindow.h"
#include "testclass.h"

#include <leavenothing.h>

#include <xeafxdlg.h>

#include <QButtonGroup>
#include <QLabel>

namespace {

// Radio buttons in a window, by name, and the window that exchanges with them.
class RadioForm
{
public:
    RadioForm() : window(&widget) {}

    QRadioButton* add(const char* name)
    {
        auto* const button = new QRadioButton(&widget);
        button->setObjectName(QString::fromLatin1(name));
        return button;
    }
    int load(QRadioButton* first, int value)
    {
        return window.load([&](CDataExchange_X* exchange) { DDX_Radio(exchange, first, value); });
    }
    // What the variable holds after saving.
    int saved(QRadioButton* first, int value)
    {
        const int done = window.save([&](CDataExchange_X* exchange) { DDX_Radio(exchange, first, value); });
        return done ? value : -99;
    }
    QString checked() const
    {
        QStringList names;
        for (const auto* button : widget.findChildren<QRadioButton*>()) {
            if (button->isChecked())
                names += button->objectName();
        }
        return names.join(QLatin1Char(' '));
    }

    QWidget widget;
    ExchangeWindow window;
};

} // namespace

class tst_DdxRadio : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void radio();
    void radioWithAnIndexOutside_data();
    void radioWithAnIndexOutside();
    void radioWithoutACheckedButton();
    void radioFollowsTheTabOrder();
    void radioEndsAtTheFirstOtherWidget();
    void radioFromTheMiddle();
    void radioAcrossButtonGroups();
    void radioInARingOfRadioButtons();
    void radioNull();
};

void tst_DdxRadio::radio()
{
    RadioForm form;
    QRadioButton* const first = form.add("a");
    form.add("b");
    form.add("c");
    const QStringList names{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};
    for (const int index : {2, 0, 1}) {
        QCOMPARE(form.load(first, index), 1);
        QCOMPARE(form.checked(), names[index]);
        QCOMPARE(form.saved(first, 99), index);
    }
}

void tst_DdxRadio::radioWithAnIndexOutside_data()
{
    QTest::addColumn<int>("value");
    QTest::newRow("-1") << -1;
    QTest::newRow("past the end") << 2;
}

// Buttons that exclude each other always have one checked, once there is one.
void tst_DdxRadio::radioWithAnIndexOutside()
{
    QFETCH(int, value);
    RadioForm form;
    QRadioButton* const first = form.add("a");
    QRadioButton* const second = form.add("b");
    QCOMPARE(form.load(first, value), 1);
    QCOMPARE(form.checked(), QString());
    second->setChecked(true);
    QCOMPARE(form.load(first, value), 1);
    QCOMPARE(form.checked(), QStringLiteral("b"));
    first->setAutoExclusive(false);
    second->setAutoExclusive(false);
    QCOMPARE(form.load(first, value), 1);
    QCOMPARE(form.checked(), QString());
}

void tst_DdxRadio::radioWithoutACheckedButton()
{
    RadioForm form;
    QRadioButton* const first = form.add("a");
    form.add("b");
    QCOMPARE(form.saved(first, 7), 7);
}

void tst_DdxRadio::radioFollowsTheTabOrder()
{
    RadioForm form;
    QRadioButton* const middle = form.add("middle");
    QRadioButton* const first = form.add("first");
    form.add("last");
    QWidget::setTabOrder(first, middle);
    QCOMPARE(form.load(first, 2), 1);
    QCOMPARE(form.checked(), QStringLiteral("last"));
    QCOMPARE(form.saved(first, 99), 2);
    middle->setChecked(true);
    QCOMPARE(form.saved(first, 99), 1);
}

void tst_DdxRadio::radioEndsAtTheFirstOtherWidget()
{
    RadioForm form;
    QRadioButton* const first = form.add("a");
    form.add("b");
    new QLabel(&form.widget); // out of the user's tab order, and in the chain
    QRadioButton* const beyond = form.add("c");
    beyond->setAutoExclusive(false);
    beyond->setChecked(true);
    QCOMPARE(form.saved(first, 99), 99);
    QCOMPARE(form.load(first, 2), 1);
    QCOMPARE(form.checked(), QStringLiteral("c"));
    QCOMPARE(form.load(first, 1), 1);
    QCOMPARE(form.checked(), QStringLiteral("b c"));
    QCOMPARE(form.saved(first, 99), 1);
}

void tst_DdxRadio::radioFromTheMiddle()
{
    RadioForm form;
    form.add("a");
    QRadioButton* const middle = form.add("b");
    form.add("c");
    QCOMPARE(form.load(middle, 1), 1);
    QCOMPARE(form.checked(), QStringLiteral("c"));
    QCOMPARE(form.saved(middle, 99), 1);
}

// A group of Qt's does not bound the walk; the first checked button counts.
void tst_DdxRadio::radioAcrossButtonGroups()
{
    RadioForm form;
    QButtonGroup one;
    QButtonGroup two;
    QRadioButton* const first = form.add("a");
    QRadioButton* const second = form.add("b");
    QRadioButton* const third = form.add("c");
    one.addButton(first);
    one.addButton(second);
    two.addButton(third);
    third->setChecked(true);
    QCOMPARE(form.saved(first, 99), 2);
    second->setChecked(true);
    QCOMPARE(form.checked(), QStringLiteral("b c"));
    QCOMPARE(form.saved(first, 99), 1);
}

void tst_DdxRadio::radioInARingOfRadioButtons()
{
    QWidget widget;
    ExchangeWindow window(&widget);
    QRadioButton first;
    auto* const second = new QRadioButton(&first);
    auto* const third = new QRadioButton(&first);
    QCOMPARE(third->nextInFocusChain(), &first);
    int value = 2;
    const auto exchangeValue = [&](CDataExchange_X* exchange) { DDX_Radio(exchange, &first, value); };
    QCOMPARE(window.load(exchangeValue), 1);
    QVERIFY(!first.isChecked());
    QVERIFY(!second->isChecked());
    QVERIFY(third->isChecked());
    value = 99;
    QCOMPARE(window.save(exchangeValue), 1);
    QCOMPARE(value, 2);
    third->setAutoExclusive(false);
    third->setChecked(false);
    value = 99;
    QCOMPARE(window.save(exchangeValue), 1);
    QCOMPARE(value, 99);
}

void tst_DdxRadio::radioNull()
{
    RadioForm form;
    QCOMPARE(form.load(nullptr, 1), 1);
    QCOMPARE(form.saved(nullptr, 7), 7);
}

XE_TEST(tst_DdxRadio)
#include "tst_ddxradio.moc"
