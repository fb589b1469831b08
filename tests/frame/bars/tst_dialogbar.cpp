// A dialog bar: where it goes by its style, and its form.

#include "bars/bartext.h"
#include "bars/dockplace.h"
#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QMainWindow>
#include <QPushButton>
#include <QTextEdit>
#include <QVBoxLayout>

namespace {

// Writes down what a template in the form of a number arrives as.
class TemplateBar : public CDialogBar_X
{
public:
    using CDialogBar_X::Create;
    int Create(QWidget* parent, const wchar_t* templateName, unsigned int style, unsigned int id) override
    {
        arrived = reinterpret_cast<ULONG_PTR>(templateName);
        return CDialogBar_X::Create(parent, templateName, style, id);
    }
    ULONG_PTR arrived = 1;
};

// A form of its own.
class FormBar : public CDialogBar_X
{
protected:
    void SetupUI() override
    {
        auto* const form = new QPushButton(QStringLiteral("Go"));
        form->setFixedSize(120, 40);
        Imp<QDockWidget>()->setWidget(form);
    }
};

// The layout of a main window does not tell how many.
int itemsOf(const QMainWindow& window)
{
    int count = 0;
    while (window.layout()->itemAt(count))
        ++count;
    return count;
}

} // namespace

class tst_DialogBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void classes();
    void isPlacedByItsStyle_data();
    void isPlacedByItsStyle();
    void noParent();
    void parentByItsWrapper();
    void templatesAreNotLookedAt();
    void numberGoesToTheOtherForm_data();
    void numberGoesToTheOtherForm();
    void defaultSize();
    void hostsDefaultSizeStays();
    void fixedLayout_data();
    void fixedLayout();
    void occInfo();
    void formInAMainWindow();
    void destroyedWhileItsSeparatorIsDragged();
    void refused();
    void deletedWhileItIsShown();
};

void tst_DialogBar::classes()
{
    QVERIFY(RUNTIME_CLASS_X(CDialogBar_X)->IsDerivedFrom(RUNTIME_CLASS_X(CControlBar_X)));
    QCOMPARE(RUNTIME_CLASS_X(CDialogBar_X)->CreateObject(), nullptr);
    QDockWidget widget;
    QCOMPARE(CWnd_X::FromHandle(&widget)->GetClassName(), "CWnd_X");
    CDialogBar_X bar;
    QCOMPARE(bar.SubclassWindow(&widget), 1);
    bar.Detach();
    QLabel other;
    QCOMPARE(bar.SubclassWindow(&other), 0);
}

void tst_DialogBar::isPlacedByItsStyle_data() { addPlaces(); }

void tst_DialogBar::isPlacedByItsStyle()
{
    QFETCH(UINT, style);
    QWidget parent;
    parent.resize(400, 300);
    parent.show();
    expectWarnings(style & CBRS_FLOATING, style & CBRS_SIZE_FIXED);
    CDialogBar_X bar;
    QCOMPARE(bar.Create(&parent, L"IDD", style, 7), 1);
    QCOMPARE(bar.GetSafeHwnd()->parentWidget(), &parent);
    QTEST(dockPlace(bar), "place");
    QCOMPARE(bar.Imp<QDockWidget>()->allowedAreas(), Qt::DockWidgetAreas(Qt::AllDockWidgetAreas));
    QCOMPARE(bar.GetStyle(), style);
}

void tst_DialogBar::noParent()
{
    CDialogBar_X bar;
    QCOMPARE(bar.Create(nullptr, L"IDD", WS_CHILD | CBRS_BOTTOM, 7), 1);
    QCOMPARE(bar.GetSafeHwnd()->parentWidget(), nullptr);
}

void tst_DialogBar::parentByItsWrapper()
{
    CWnd_X frame;
    frame.Create(0, static_cast<QWidget*>(nullptr));
    CDialogBar_X bar;
    QCOMPARE(bar.Create(&frame, L"IDD", 0, 7), 1);
    QCOMPARE(bar.GetSafeHwnd()->parentWidget(), frame.GetSafeHwnd());
    CDialogBar_X other;
    QCOMPARE(other.Create(&frame, 101u, 0, 7), 1);
    QCOMPARE(other.GetSafeHwnd()->parentWidget(), frame.GetSafeHwnd());
}

void tst_DialogBar::templatesAreNotLookedAt()
{
    QWidget parent;
    CDialogBar_X bar;
    QCOMPARE(bar.Create(&parent, static_cast<const wchar_t*>(nullptr), 0, 0), 1);
    QCOMPARE(bar.m_lpszTemplateName, nullptr);
}

void tst_DialogBar::numberGoesToTheOtherForm_data()
{
    QTest::addColumn<UINT>("id");
    QTest::addColumn<quint64>("arrived");
    QTest::newRow("small") << 101u << quint64(101);
    QTest::newRow("highest of 16 bits") << 0xFFFFu << quint64(0xFFFF);
    QTest::newRow("the bits above are cut") << 0x12345678u << quint64(0x5678);
}

void tst_DialogBar::numberGoesToTheOtherForm()
{
    QFETCH(UINT, id);
    QWidget parent;
    TemplateBar bar;
    QCOMPARE(bar.Create(&parent, id, WS_CHILD, 7), 1);
    QTEST(quint64(bar.arrived), "arrived");
    QVERIFY(bar.GetSafeHwnd());
}

// ------------------------------------------------------------------------------------------------------------- sizes

void tst_DialogBar::defaultSize()
{
    QWidget parent;
    CDialogBar_X bar;
    bar.AttachDefault(&parent);
    QVERIFY(bar.m_sizeDefault == CSize(0, 0));
    FormBar form;
    form.Create(&parent, 1u, WS_CHILD | WS_VISIBLE, 7);
    const QSize size = form.GetSafeHwnd()->size();
    QVERIFY(size.width() >= 120 && size.height() >= 40);
    QVERIFY(form.m_sizeDefault == CSize(size.width(), size.height()));
}

void tst_DialogBar::hostsDefaultSizeStays()
{
    QWidget parent;
    CDialogBar_X bar;
    bar.m_sizeDefault = CSize(11, 0);
    bar.Create(&parent, 1u, 0, 7);
    QVERIFY(bar.m_sizeDefault == CSize(11, 0));
}

void tst_DialogBar::fixedLayout_data()
{
    QTest::addColumn<int>("stretch");
    QTest::addColumn<int>("horizontal");
    QTest::addColumn<QSize>("size");
    QTest::newRow("as it is") << 0 << 0 << QSize(80, 40);
    QTest::newRow("as it is, lying") << 0 << 1 << QSize(80, 40);
    QTest::newRow("stretched in height") << 1 << 0 << QSize(80, 32767);
    QTest::newRow("stretched in width") << 1 << 1 << QSize(32767, 40);
    QTest::newRow("any other number") << -3 << 2 << QSize(32767, 40);
}

void tst_DialogBar::fixedLayout()
{
    QFETCH(int, stretch);
    QFETCH(int, horizontal);
    CDialogBar_X bar;
    bar.m_sizeDefault = CSize(80, 40);
    const CSize size = bar.CalcFixedLayout(stretch, horizontal);
    QTEST(QSize(size.cx, size.cy), "size");
}

void tst_DialogBar::occInfo()
{
    CDialogBar_X bar;
    QCOMPARE(bar.m_pOccDialogInfo, nullptr);
    auto* const info = reinterpret_cast<_AFX_OCC_DIALOG_INFO_X*>(&bar);
    QCOMPARE(bar.SetOccDialogInfo(info), 1);
    QCOMPARE(bar.m_pOccDialogInfo, info);
}

// ------------------------------------------------------------------------------------------------------- in a window

void tst_DialogBar::formInAMainWindow()
{
    QTest::ignoreMessage(QtWarningMsg, "This plugin does not support propagateSizeHints()");
    QMainWindow window;
    window.resize(400, 300);
    window.setCentralWidget(new QWidget);
    FormBar bar;
    QCOMPARE(bar.Create(&window, 1u, WS_CHILD | WS_VISIBLE | CBRS_BOTTOM, 7), 1);
    window.addDockWidget(Qt::BottomDockWidgetArea, bar.Imp<QDockWidget>());
    window.show();
    auto* const button = bar.GetSafeHwnd()->findChild<QPushButton*>();
    QVERIFY(button->isVisible());
    QTRY_COMPARE(bar.GetSafeHwnd()->geometry().bottom(), window.rect().bottom());
    bool clicked = false;
    connect(button, &QPushButton::clicked, button, [&] { clicked = true; });
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(clicked);
}

// Qt goes back to the layout of the press at each move, and takes no bar out of that which is no dock widget any more.
void tst_DialogBar::destroyedWhileItsSeparatorIsDragged()
{
    QTest::ignoreMessage(QtWarningMsg, "This plugin does not support propagateSizeHints()");
    QMainWindow window;
    window.resize(400, 300);
    window.setCentralWidget(new QWidget);
    CDialogBar_X bar;
    QCOMPARE(bar.Create(&window, 1u, WS_CHILD | WS_VISIBLE | CBRS_BOTTOM, 7), 1);
    bar.Imp<QDockWidget>()->setWidget(new QTextEdit);
    window.addDockWidget(Qt::BottomDockWidgetArea, bar.Imp<QDockWidget>());
    window.show();
    QTRY_COMPARE(bar.GetSafeHwnd()->geometry().bottom(), window.rect().bottom());
    QCOMPARE(itemsOf(window), 2);

    const QPoint separator(200, (window.centralWidget()->geometry().bottom() + bar.GetSafeHwnd()->y()) / 2);
    const auto dragTo = [&](int y) {
        QMouseEvent move(QEvent::MouseMove, QPoint(200, y), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &move);
    };
    const int height = window.centralWidget()->height();
    QTest::mousePress(&window, Qt::LeftButton, {}, separator);
    dragTo(separator.y() - 20);
    QTRY_COMPARE(window.centralWidget()->height(), height - 20);

    QTest::ignoreMessage(QtWarningMsg, "This plugin does not support propagateSizeHints()");
    bar.DestroyWindow();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!bar.GetSafeHwnd());
    QCOMPARE(itemsOf(window), 1);
    dragTo(separator.y() - 40);
    QTRY_COMPARE(window.centralWidget()->height(), window.height());
    QCOMPARE(itemsOf(window), 1);
    QTest::mouseRelease(&window, Qt::LeftButton, {}, separator);
}

void tst_DialogBar::refused()
{
    class Refusing : public CDialogBar_X
    {
    public:
        int OnCreate(tagCREATESTRUCTW*) override { return -1; }
    };
    QWidget parent;
    Refusing bar;
    QCOMPARE(bar.Create(&parent, 1u, WS_VISIBLE | CBRS_FLOATING, 7), 0);
    QVERIFY(bar.m_sizeDefault == CSize());
}

void tst_DialogBar::deletedWhileItIsShown()
{
    class ShownOnce : public CDialogBar_X
    {
    public:
        int PreTranslateMessage(tagMSG* message) override
        {
            if (message->message == WM_SHOWWINDOW)
                delete this;
            return 1;
        }
    };
    QWidget parent;
    parent.show();
    const QPointer<CDialogBar_X> bar(new ShownOnce);
    QCOMPARE(bar->Create(&parent, 1u, WS_VISIBLE | CBRS_RIGHT | CBRS_SIZE_FIXED, 7), 1);
    QVERIFY(!bar);
}

XE_TEST(tst_DialogBar)
#include "tst_dialogbar.moc"
