#include "leavenothing.h"
#include "testclass.h"

#include <xeafxdtctl.h>

#include <QDateTimeEdit>
#include <QSignalSpy>
#include <QTimeEdit>

#include <cstring>

namespace {

bool isSame(const _SYSTEMTIME& a, const _SYSTEMTIME& b) { return !std::memcmp(&a, &b, sizeof a); }

} // namespace

class tst_DateTime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void madeByCreate();
    void aFieldOfAForm();
    void classesOfTheWidgets();
    void setAndGet();
    void theTimeOfDayIsNotTouched();
    void datesThatDoNotExist_data();
    void datesThatDoNotExist();
    void datesBeyondTheRange();
    void aTypedDate();
    void null();

private:
    std::unique_ptr<QDateEdit> m_widget;
    std::unique_ptr<CDateTimeCtrl_X> m_field;
};

void tst_DateTime::init()
{
    m_widget = std::make_unique<QDateEdit>(QDate(2020, 2, 29));
    m_field = std::make_unique<CDateTimeCtrl_X>();
    QCOMPARE(m_field->SubclassWindow(m_widget.get()), 1);
}

void tst_DateTime::cleanup()
{
    m_field.reset();
    m_widget.reset();
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

void tst_DateTime::madeByCreate()
{
    QWidget parent;
    CDateTimeCtrl_X field;
    QCOMPARE(field.Create(WS_CHILD | DTS_TIMEFORMAT, CRect(5, 6, 105, 30), &parent), 1);
    QVERIFY(field.Imp<QDateEdit>()->calendarPopup());
    QCOMPARE(field.GetSafeHwnd()->geometry(), QRect(5, 6, 100, 24));
}

void tst_DateTime::aFieldOfAForm() { QVERIFY(m_widget->calendarPopup()); }

void tst_DateTime::classesOfTheWidgets()
{
    QDateEdit date;
    QCOMPARE(CWnd_X::FromHandle(&date)->GetRuntimeClass(), RUNTIME_CLASS_X(CDateTimeCtrl_X));
    QTimeEdit time;
    QDateTimeEdit both;
    QCOMPARE(m_field->SubclassWindow(&time), 0);
    QCOMPARE(m_field->SubclassWindow(&both), 0);
    for (QWidget* widget : {static_cast<QWidget*>(&time), static_cast<QWidget*>(&both)})
        QCOMPARE(CWnd_X::FromHandle(widget)->GetClassName(), "CSpinButtonCtrl_X");
}

void tst_DateTime::setAndGet()
{
    const QSignalSpy changes(m_widget.get(), &QDateEdit::dateChanged);
    const _SYSTEMTIME delivered{2026, 11, 0, 22, 0, 0, 0, 0};
    QCOMPARE(m_field->SetTime(&delivered), 1);
    QCOMPARE(m_widget->date(), QDate(2026, 11, 22));
    QCOMPARE(changes.size(), 1);
    _SYSTEMTIME got{};
    QCOMPARE(m_field->GetTime(&got), 0u);
    QVERIFY(isSame(got, delivered));
}

void tst_DateTime::theTimeOfDayIsNotTouched()
{
    const _SYSTEMTIME withTime{2026, 11, 3, 22, 13, 14, 15, 16};
    m_field->SetTime(&withTime);
    QCOMPARE(m_widget->time(), QTime(0, 0));
    _SYSTEMTIME got{1, 2, 3, 4, 5, 6, 7, 8};
    m_field->GetTime(&got);
    QVERIFY(isSame(got, {2026, 11, 3, 22, 5, 6, 7, 8}));
}

void tst_DateTime::datesThatDoNotExist_data()
{
    QTest::addColumn<int>("year");
    QTest::addColumn<int>("month");
    QTest::addColumn<int>("day");
    QTest::newRow("no leap year") << 2021 << 2 << 29;
    QTest::newRow("month 13") << 2021 << 13 << 1;
    QTest::newRow("all zero") << 0 << 0 << 0;
}

void tst_DateTime::datesThatDoNotExist()
{
    QFETCH(int, year);
    QFETCH(int, month);
    QFETCH(int, day);
    const _SYSTEMTIME time{static_cast<WORD>(year), static_cast<WORD>(month), 0, static_cast<WORD>(day), 0, 0, 0, 0};
    QCOMPARE(m_field->SetTime(&time), 1);
    QCOMPARE(m_widget->date(), QDate(2020, 2, 29));
}

void tst_DateTime::datesBeyondTheRange()
{
    const _SYSTEMTIME early{1700, 1, 0, 1, 0, 0, 0, 0};
    QCOMPARE(m_field->SetTime(&early), 1);
    QCOMPARE(m_widget->date(), QDate(1752, 9, 14));
}

void tst_DateTime::aTypedDate()
{
    m_widget->setDisplayFormat("yyyy-MM-dd");
    m_widget->setSelectedSection(QDateTimeEdit::YearSection);
    QTest::keyClicks(m_widget.get(), "2031");
    _SYSTEMTIME got{};
    m_field->GetTime(&got);
    QCOMPARE(int(got.wYear), 2031);
}

void tst_DateTime::null()
{
    QCOMPARE(m_field->SetTime(nullptr), 0);
    QCOMPARE(m_field->GetTime(nullptr), 0u);
    CDateTimeCtrl_X none;
    _SYSTEMTIME time{1, 2, 3, 4, 5, 6, 7, 8};
    QCOMPARE(none.SetTime(&time), 0);
    QCOMPARE(none.GetTime(&time), 0u);
    QVERIFY(isSame(time, {1, 2, 3, 4, 5, 6, 7, 8}));
}

XE_TEST(tst_DateTime)
#include "tst_datetime.moc"
