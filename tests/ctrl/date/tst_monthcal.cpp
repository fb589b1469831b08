#include "leavenothing.h"
#include "testclass.h"

#include <xeafxdtctl.h>

#include <QSignalSpy>
#include <QTableView>

#include <cstring>

namespace {

/// Notes the forms of Create() that come to it.
class Calendar : public CMonthCalCtrl_X
{
public:
    using CMonthCalCtrl_X::Create;
    int Create(DWORD style, const tagRECT& rect, QWidget* parent) override
    {
        places += QRect(QPoint(rect.left, rect.top), QPoint(rect.right, rect.bottom));
        return CMonthCalCtrl_X::Create(style, rect, parent);
    }

    QList<QRect> places;
};

} // namespace

class tst_MonthCal : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void weekNumbers_data();
    void weekNumbers();
    void formsOfCreate();
    void aCalendarAtAPointHasASize();
    void classOfTheWidget();

    void selection();
    void theSystemTimeOfASunday();
    void theMomentIsMidnight();
    void datesThatDoNotExist();
    void aClickSelects();
    void null();

private:
    std::unique_ptr<QWidget> m_parent;
    CWnd_X m_frame;
    std::unique_ptr<Calendar> m_calendar;
};

void tst_MonthCal::init()
{
    m_parent = std::make_unique<QWidget>();
    m_parent->resize(500, 400);
    m_parent->show();
    m_frame.SubclassWindow(m_parent.get());
    m_calendar = std::make_unique<Calendar>();
}

void tst_MonthCal::cleanup()
{
    m_calendar.reset();
    m_frame.Detach();
    m_parent.reset();
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

void tst_MonthCal::weekNumbers_data()
{
    QTest::addColumn<DWORD>("style");
    QTest::addColumn<QCalendarWidget::VerticalHeaderFormat>("header");
    QTest::newRow("asked for") << (WS_VISIBLE | MCS_WEEKNUMBERS) << QCalendarWidget::ISOWeekNumbers;
    QTest::newRow("not asked for") << (WS_VISIBLE | MCS_NOTODAY) << QCalendarWidget::NoVerticalHeader;
}

void tst_MonthCal::weekNumbers()
{
    QFETCH(DWORD, style);
    QCOMPARE(m_calendar->Create(style, CRect(10, 20, 310, 220), m_parent.get()), 1);
    QTEST(m_calendar->Imp<QCalendarWidget>()->verticalHeaderFormat(), "header");
    QCOMPARE(m_calendar->GetSafeHwnd()->geometry().topLeft(), QPoint(10, 20));
    QVERIFY(m_calendar->GetSafeHwnd()->isVisible());
}

void tst_MonthCal::formsOfCreate()
{
    const CRect rect(10, 20, 310, 220);
    QCOMPARE(m_calendar->Create(MCS_WEEKNUMBERS, rect, &m_frame, 77), 1);
    QCOMPARE(m_calendar->GetSafeHwnd()->parentWidget(), m_parent.get());
    QCOMPARE(m_calendar->Create(0, rect, &m_frame), 1);
    QCOMPARE(m_calendar->Create(0, CPoint(7, 8), m_parent.get()), 1);
    QCOMPARE(m_calendar->Create(0, CPoint(7, 8), &m_frame, 77), 1);
    QCOMPARE(m_calendar->GetSafeHwnd()->pos(), QPoint(7, 8));
    const QRect place(QPoint(10, 20), QPoint(310, 220));
    const QRect point(QPoint(7, 8), QPoint(7, 8));
    QCOMPARE(m_calendar->places, (QList<QRect>{place, place, point, point}));
    QCOMPARE(m_calendar->CWnd_X::Create(m_parent.get()), 1);
}

void tst_MonthCal::aCalendarAtAPointHasASize()
{
    m_calendar->Create(WS_VISIBLE, CPoint(7, 8), m_parent.get());
    QCOMPARE(m_calendar->GetSafeHwnd()->size(), m_calendar->GetSafeHwnd()->sizeHint());
    QVERIFY(m_calendar->GetSafeHwnd()->height() > 100);
}

void tst_MonthCal::classOfTheWidget()
{
    QCalendarWidget widget;
    QCOMPARE(CWnd_X::FromHandle(&widget)->GetRuntimeClass(), RUNTIME_CLASS_X(CMonthCalCtrl_X));
}

void tst_MonthCal::selection()
{
    m_calendar->Create(0, CPoint(0, 0), m_parent.get());
    const QSignalSpy changes(m_calendar->Imp<QCalendarWidget>(), &QCalendarWidget::selectionChanged);
    QDate date;
    QCOMPARE(m_calendar->SetCurSel(QDate(2024, 2, 29)), 1);
    QCOMPARE(m_calendar->GetCurSel(date), 1);
    QCOMPARE(date, QDate(2024, 2, 29));
    const _SYSTEMTIME time{2025, 3, 0, 4, 23, 59, 58, 999};
    QCOMPARE(m_calendar->SetCurSel(&time), 1);
    m_calendar->GetCurSel(date);
    QCOMPARE(date, QDate(2025, 3, 4));
    QCOMPARE(m_calendar->SetCurSel(COleDateTime_X(2026, 5, 6, 7, 8, 9)), 1);
    m_calendar->GetCurSel(date);
    QCOMPARE(date, QDate(2026, 5, 6));
    QCOMPARE(changes.size(), 3);
}

void tst_MonthCal::theSystemTimeOfASunday()
{
    m_calendar->Create(0, CPoint(0, 0), m_parent.get());
    m_calendar->SetCurSel(QDate(2026, 11, 22));
    _SYSTEMTIME time{1, 2, 3, 4, 5, 6, 7, 8};
    QCOMPARE(m_calendar->GetCurSel(&time), 1);
    const _SYSTEMTIME expected{2026, 11, 7, 22, 0, 0, 0, 0};
    QVERIFY(!std::memcmp(&time, &expected, sizeof time));
    m_calendar->SetCurSel(QDate(2026, 11, 23));
    m_calendar->GetCurSel(&time);
    QCOMPARE(int(time.wDayOfWeek), 1);
}

void tst_MonthCal::theMomentIsMidnight()
{
    m_calendar->Create(0, CPoint(0, 0), m_parent.get());
    m_calendar->SetCurSel(QDate(2026, 11, 22));
    COleDateTime_X moment;
    QCOMPARE(m_calendar->GetCurSel(moment), 1);
    QCOMPARE(double(moment), double(QDateTime(QDate(2026, 11, 22), QTime(0, 0)).toSecsSinceEpoch()));
}

void tst_MonthCal::datesThatDoNotExist()
{
    m_calendar->Create(0, CPoint(0, 0), m_parent.get());
    m_calendar->SetCurSel(QDate(2026, 11, 22));
    const _SYSTEMTIME noDay{2025, 2, 0, 30, 0, 0, 0, 0};
    QCOMPARE(m_calendar->SetCurSel(&noDay), 0);
    QCOMPARE(m_calendar->SetCurSel(QDate()), 0);
    QCOMPARE(m_calendar->SetCurSel(COleDateTime_X()), 0);
    QDate date;
    m_calendar->GetCurSel(date);
    QCOMPARE(date, QDate(2026, 11, 22));
}

void tst_MonthCal::aClickSelects()
{
    m_calendar->Create(WS_VISIBLE, CRect(0, 0, 350, 250), m_parent.get());
    m_calendar->SetCurSel(QDate(2026, 11, 2));
    auto* const days = m_calendar->GetSafeHwnd()->findChild<QTableView*>();
    QVERIFY(days);
    const QModelIndex before = days->currentIndex();
    QTest::mouseClick(days->viewport(), Qt::LeftButton, {},
                      days->visualRect(before.sibling(before.row() + 2, before.column())).center());
    QDate date;
    m_calendar->GetCurSel(date);
    QCOMPARE(date, QDate(2026, 11, 16));
}

void tst_MonthCal::null()
{
    QDate date(2000, 1, 1);
    COleDateTime_X moment(5.0);
    _SYSTEMTIME time{1, 2, 3, 4, 5, 6, 7, 8};
    QCOMPARE(m_calendar->SetCurSel(date), 0);
    QCOMPARE(m_calendar->SetCurSel(&time), 0);
    QCOMPARE(m_calendar->GetCurSel(date), 0);
    QCOMPARE(m_calendar->GetCurSel(moment), 0);
    QCOMPARE(m_calendar->GetCurSel(&time), 0);
    QCOMPARE(date, QDate(2000, 1, 1));
    QCOMPARE(double(moment), 5.0);
    QCOMPARE(int(time.wMilliseconds), 8);
    m_calendar->Create(0, CPoint(0, 0), m_parent.get());
    QCOMPARE(m_calendar->SetCurSel(static_cast<const _SYSTEMTIME*>(nullptr)), 0);
    QCOMPARE(m_calendar->GetCurSel(static_cast<_SYSTEMTIME*>(nullptr)), 0);
}

XE_TEST(tst_MonthCal)
#include "tst_monthcal.moc"
