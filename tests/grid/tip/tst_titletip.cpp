#include "leavenothing.h"
#include "messagetrace.h"
#include "quietgrab.h"
#include "testclass.h"

#include <XeTitleTip.h>
#include <xecolor.h>

namespace {

// A window of 300 x 200 that has the focus.
struct Parent
{
    Parent()
    {
        window.Create(0, static_cast<QWidget*>(nullptr));
        widget()->resize(300, 200);
        widget()->show();
        widget()->activateWindow();
        widget()->setFocus();
        tip.Create(&window);
    }
    ~Parent() { window.DestroyWindow(); }

    QWidget* widget() const { return window.GetSafeHwnd(); }
    bool isReady() const { return QTest::qWaitForWindowActive(widget()) && CWnd_X::GetFocus(); }
    int advance(const wchar_t* text) const { return QFontMetrics(widget()->font()).horizontalAdvance(XeQString(text)); }

    Traced<> window;
    CTitleTip_X tip;
};

int countOf(const QImage& image, QRgb colour)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixel(x, y) == colour;
    }
    return count;
}

QString textOf(const CRect& rect)
{
    return QStringLiteral("%1 %2 %3 %4").arg(rect.left).arg(rect.top).arg(rect.right).arg(rect.bottom);
}

const wchar_t* const longText = L"a text that does not fit";

} // namespace

class tst_TitleTip : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { allowOffscreenGrab(); }
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void startValues();
    void needsAParent();
    void isHiddenAtFirst();
    void opensBelowThePlace();
    void opensOnlyForATextThatDoesNotFit_data();
    void opensOnlyForATextThatDoesNotFit();
    void staysInsideTheParent_data();
    void staysInsideTheParent();
    void hoverRectangle();
    void secondShowChangesNothing();
    void emptyRectangleStoresNothing();
    void withoutFocusOnlyColoursAreKept();
    void font();
    void pointerInsideKeepsItOpen();
    void pointerOutsideClosesIt();
    void pointerBesideTheParentIsNotToldOf();
    void pressGoesToTheParent();
    void hideLeavesTheGrabOfOthers();
    void painting_data();
    void painting();
};

void tst_TitleTip::startValues()
{
    const CTitleTip_X tip;
    QCOMPARE(tip.m_pParentWnd, nullptr);
    QCOMPARE(tip.m_dwLastClick, -1);
    QCOMPARE(tip.m_crBack, 0xFF000000u);
    QCOMPARE(tip.m_crBackDefault, 0xFF000000u);
    QCOMPARE(tip.m_crText, 0xFF000000u);
    QVERIFY(tip.m_strTitle.IsEmpty());
    QVERIFY(tip.m_rectHover.IsRectNull());
}

void tst_TitleTip::needsAParent()
{
    CTitleTip_X tip;
    QCOMPARE(tip.Create(static_cast<CWnd_X*>(nullptr)), 0);
    CWnd_X bare;
    QCOMPARE(tip.Create(&bare), 0);
    QCOMPARE(tip.GetSafeHwnd(), nullptr);
    tip.Show(CRect(0, 0, 10, 10), longText);
    tip.Hide();
    tip.OnMouseMove(0, CPoint(50, 50));
    QVERIFY(tip.m_strTitle.IsEmpty());
}

void tst_TitleTip::isHiddenAtFirst()
{
    const Parent parent;
    QCOMPARE(parent.tip.m_pParentWnd, &parent.window);
    QCOMPARE(parent.tip.GetSafeHwnd()->parentWidget(), parent.widget());
    QCOMPARE(parent.tip.IsWindowVisible(), 0);
    QCOMPARE(parent.tip.GetSafeHwnd()->focusPolicy(), Qt::NoFocus);
    parent.widget()->hide();
    parent.widget()->show();
    QVERIFY(!parent.tip.GetSafeHwnd()->isVisible());
}

void tst_TitleTip::opensBelowThePlace()
{
    Parent parent;
    QVERIFY(parent.isReady());
    parent.tip.Show(CRect(20, 30, 60, 50), longText, 5);
    QCOMPARE(parent.tip.IsWindowVisible(), 1);
    const int width = parent.advance(longText) + 3 + 5;
    QCOMPARE(parent.tip.GetSafeHwnd()->geometry(), QRect(24, 49, width + 2, 22));
    QCOMPARE(textOf(parent.tip.m_rectDisplay), textOf(CRect(24, 49, 26 + width, 71)));
    QCOMPARE(textOf(parent.tip.m_rectTitle), QStringLiteral("-6 -1 35 21"));
    QVERIFY(parent.tip.m_strTitle == L" a text that does not fit ");
    QCOMPARE(CWnd_X::GetCapture(), parent.tip.GetSafeHwnd());
    parent.tip.Hide();
    QCOMPARE(parent.tip.IsWindowVisible(), 0);
    QCOMPARE(CWnd_X::GetCapture(), nullptr);
}

void tst_TitleTip::opensOnlyForATextThatDoesNotFit_data()
{
    QTest::addColumn<int>("spare");
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("opens");

    QTest::newRow("one pixel is missing") << 2 << 0 << 1;
    QTest::newRow("fits exactly") << 3 << 0 << 0;
    QTest::newRow("the offset counts three times: missing") << 8 << 2 << 1;
    QTest::newRow("the offset counts three times: fits") << 9 << 2 << 0;
}

void tst_TitleTip::opensOnlyForATextThatDoesNotFit()
{
    QFETCH(int, spare);
    QFETCH(int, offset);
    QFETCH(int, opens);
    Parent parent;
    QVERIFY(parent.isReady());
    parent.tip.Show(CRect(10, 10, 10 + parent.advance(L"text") + spare, 30), L"text", offset);
    QCOMPARE(parent.tip.IsWindowVisible(), opens);
    QVERIFY(parent.tip.m_strTitle == L" text ");
    parent.tip.Hide();
}

void tst_TitleTip::staysInsideTheParent_data()
{
    QTest::addColumn<QPoint>("cell");
    QTest::addColumn<QString>("place");

    QTest::newRow("room on all sides") << QPoint(10, 10) << "left 9 top 29";
    QTest::newRow("no room below") << QPoint(10, 170) << "left 9 top 149";
    QTest::newRow("a row more below") << QPoint(10, 159) << "left 9 top 178";
    QTest::newRow("no room at the right") << QPoint(270, 10) << "right 300 top 29";
    QTest::newRow("from the left edge") << QPoint(0, 10) << "left -1 top 29";
}

void tst_TitleTip::staysInsideTheParent()
{
    QFETCH(QPoint, cell);
    QFETCH(QString, place);
    Parent parent;
    QVERIFY(parent.isReady());
    parent.tip.Show(CRect(cell.x(), cell.y(), cell.x() + 30, cell.y() + 20), longText);
    const QRect tip = parent.tip.GetSafeHwnd()->geometry();
    const QString found = place.startsWith(QLatin1String("left")) ? QStringLiteral("left %1").arg(tip.left())
                                                                  : QStringLiteral("right %1").arg(tip.right() + 1);
    QCOMPARE(found + QStringLiteral(" top %1").arg(tip.top()), place);
    QCOMPARE(tip.size(), QSize(parent.advance(longText) + 5, 22));
    parent.tip.Hide();
}

void tst_TitleTip::hoverRectangle()
{
    Parent parent;
    QVERIFY(parent.isReady());
    tagRECT hover = {10, 28, 70, 52};
    parent.tip.Show(CRect(20, 30, 60, 50), longText, 0, &hover);
    QCOMPARE(textOf(parent.tip.m_rectHover), textOf(CRect(10 - 19, 28 - 49, 71 - 19, 53 - 49)));
    QCOMPARE(textOf(hover), QStringLiteral("10 28 70 52"));
    parent.tip.Hide();
    parent.tip.Show(CRect(60, 130, 80, 150), longText);
    QCOMPARE(textOf(parent.tip.m_rectHover), textOf(CRect(60 - 59, 130 - 149, 81 - 59, 151 - 149)));
    parent.tip.Hide();
}

void tst_TitleTip::secondShowChangesNothing()
{
    Parent parent;
    QVERIFY(parent.isReady());
    parent.tip.Show(CRect(20, 30, 60, 50), longText, 0, nullptr, nullptr, 1, 2);
    const QRect place = parent.tip.GetSafeHwnd()->geometry();
    parent.tip.Show(CRect(120, 130, 160, 150), L"another text, which is longer", 0, nullptr, nullptr, 3, 4);
    QCOMPARE(parent.tip.GetSafeHwnd()->geometry(), place);
    QCOMPARE(parent.tip.m_crText, 1u);
    QCOMPARE(parent.tip.m_crBack, 2u);
    QVERIFY(parent.tip.m_strTitle == L" a text that does not fit ");
    parent.tip.Hide();
}

void tst_TitleTip::emptyRectangleStoresNothing()
{
    Parent parent;
    QVERIFY(parent.isReady());
    parent.tip.Show(CRect(20, 30, 20, 50), longText, 0, nullptr, nullptr, 3, 4);
    QCOMPARE(parent.tip.m_crText, 0xFF000000u);
    QCOMPARE(parent.tip.m_crBack, 0xFF000000u);
    QVERIFY(parent.tip.m_rectHover.IsRectNull());
}

void tst_TitleTip::withoutFocusOnlyColoursAreKept()
{
    Parent parent;
    QVERIFY(parent.isReady());
    parent.widget()->clearFocus();
    parent.tip.Show(CRect(20, 30, 60, 50), longText, 0, nullptr, nullptr, 3, 4);
    QCOMPARE(parent.tip.IsWindowVisible(), 0);
    QCOMPARE(parent.tip.m_crText, 3u);
    QCOMPARE(parent.tip.m_crBack, 4u);
    QCOMPARE(parent.tip.m_rectHover.Size(), CSize(41, 21));
    QVERIFY(parent.tip.m_strTitle.IsEmpty());
}

void tst_TitleTip::font()
{
    Parent parent;
    QVERIFY(parent.isReady());
    QFont large = parent.widget()->font();
    large.setPixelSize(30);
    parent.tip.Show(CRect(20, 30, 60, 50), L"text", 0, nullptr, reinterpret_cast<const CFont_X*>(&large));
    QCOMPARE(parent.tip.m_font, large);
    QCOMPARE(parent.tip.GetSafeHwnd()->width(), QFontMetrics(large).horizontalAdvance(QStringLiteral("text")) + 5);
    parent.tip.Hide();
    parent.tip.Show(CRect(20, 30, 22, 50), L"text");
    QCOMPARE(parent.tip.m_font, parent.widget()->font());
    parent.tip.Hide();
}

void tst_TitleTip::pointerInsideKeepsItOpen()
{
    Parent parent;
    QVERIFY(parent.isReady());
    parent.tip.Show(CRect(20, 30, 60, 50), longText);
    parent.window.trace.clear();
    for (const QPoint point : {QPoint(20, 30), QPoint(60, 50), QPoint(40, 40)})
        QTest::mouseMove(parent.tip.GetSafeHwnd(), point - parent.tip.GetSafeHwnd()->pos());
    QCOMPARE(parent.tip.IsWindowVisible(), 1);
    QCoreApplication::sendPostedEvents();
    QVERIFY(!parent.window.trace.text().contains(QStringLiteral("WM_MOUSEMOVE")));
    parent.tip.Hide();
}

void tst_TitleTip::pointerOutsideClosesIt()
{
    Parent parent;
    QVERIFY(parent.isReady());
    parent.tip.Show(CRect(20, 30, 60, 50), longText);
    parent.window.trace.clear();
    QTest::mouseMove(parent.tip.GetSafeHwnd(), QPoint(61, 40) - parent.tip.GetSafeHwnd()->pos());
    QCOMPARE(parent.tip.IsWindowVisible(), 0);
    QCOMPARE(CWnd_X::GetCapture(), nullptr);
    QCoreApplication::sendPostedEvents(parent.widget());
    QVERIFY2(parent.window.trace.text().contains(QStringLiteral("WM_MOUSEMOVE(0x0, 0x28003d)")),
             qPrintable(parent.window.trace.text()));
}

void tst_TitleTip::pointerBesideTheParentIsNotToldOf()
{
    Parent parent;
    QVERIFY(parent.isReady());
    parent.tip.Show(CRect(20, 30, 60, 50), longText);
    parent.window.trace.clear();
    parent.tip.OnMouseMove(0, CPoint(-100, 0));
    QCOMPARE(parent.tip.IsWindowVisible(), 0);
    QCoreApplication::sendPostedEvents(parent.widget());
    QVERIFY2(!parent.window.trace.text().contains(QStringLiteral("WM_MOUSEMOVE")),
             qPrintable(parent.window.trace.text()));
}

void tst_TitleTip::pressGoesToTheParent()
{
    Parent parent;
    QVERIFY(parent.isReady());
    parent.tip.Show(CRect(20, 30, 60, 50), longText);
    parent.window.trace.clear();
    QTest::mousePress(parent.tip.GetSafeHwnd(), Qt::LeftButton, {}, QPoint(3, 4));
    QVERIFY2(parent.window.trace.text().startsWith(QStringLiteral("WM_LBUTTONDOWN(0x1, 0x350016)")),
             qPrintable(parent.window.trace.text()));
    QTest::mouseRelease(parent.tip.GetSafeHwnd(), Qt::LeftButton, {}, QPoint(3, 4));
    parent.tip.Hide();
}

void tst_TitleTip::hideLeavesTheGrabOfOthers()
{
    Parent parent;
    QVERIFY(parent.isReady());
    parent.tip.Show(CRect(20, 30, 60, 50), longText);
    parent.window.SetCapture();
    parent.tip.Hide();
    QCOMPARE(CWnd_X::GetCapture(), parent.widget());
    CWnd_X::ReleaseCapture();
}

void tst_TitleTip::painting_data()
{
    QTest::addColumn<COLORREF>("back");
    QTest::addColumn<COLORREF>("text");
    QTest::addColumn<QColor>("shownBack");
    QTest::addColumn<QColor>("shownText");

    QTest::newRow("the default colours") << CLR_DEFAULT << CLR_DEFAULT << QColor(0xE0, 0xF0, 0xFF) << QColor(Qt::black);
    QTest::newRow("own colours") << COLORREF(RGB(250, 240, 10)) << COLORREF(RGB(10, 20, 250)) << QColor(250, 240, 10)
                                 << QColor(10, 20, 250);
}

void tst_TitleTip::painting()
{
    QFETCH(COLORREF, back);
    QFETCH(COLORREF, text);
    QFETCH(QColor, shownBack);
    QFETCH(QColor, shownText);
    Parent parent;
    QVERIFY(parent.isReady());
    QFont font = parent.widget()->font();
    font.setStyleStrategy(QFont::NoAntialias);
    parent.tip.m_crBackDefault = RGB(0xE0, 0xF0, 0xFF);
    parent.tip.Show(CRect(20, 30, 60, 50), longText, 0, nullptr, reinterpret_cast<const CFont_X*>(&font), text, back);
    QWidget* const tip = parent.tip.GetSafeHwnd();
    const QImage image = tip->grab().toImage().convertToFormat(QImage::Format_RGB32);
    const int right = image.width() - 1;
    const int bottom = image.height() - 1;
    const QRgb frame = qRgb(100, 100, 100);
    const QRgb around = parent.widget()->palette().color(QPalette::Window).rgb();
    for (const QPoint corner : {QPoint(1, 1), QPoint(right, 1), QPoint(1, bottom), QPoint(right, bottom)})
        QCOMPARE(image.pixel(corner), frame);
    QCOMPARE(image.pixel(0, 0), around);
    QCOMPARE(image.pixel(right, 0), around);
    QCOMPARE(image.pixel(0, bottom), around);
    QCOMPARE(image.pixel(2, 2), shownBack.rgb());
    QCOMPARE(image.pixel(right - 1, bottom - 1), shownBack.rgb());
    QCOMPARE(countOf(image, frame), 2 * (right + bottom - 2));
    QVERIFY(countOf(image, shownText.rgb()) > 50);
    QCOMPARE(countOf(image, frame) + countOf(image, around) + countOf(image, shownBack.rgb())
                 + countOf(image, shownText.rgb()),
             image.width() * image.height());
    parent.tip.Hide();
}

XE_TEST(tst_TitleTip)

#include "tst_titletip.moc"
