// Parents, the active window, the focus, the mouse grab, and what else a window tells of itself.

#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QDesktopWidget>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>

namespace {

// A screen of a pixel ratio of its own.
class FineWidget : public QWidget
{
public:
    explicit FineWidget(int ratio) : m_ratio(ratio) {}

protected:
    int metric(PaintDeviceMetric which) const override
    {
        return which == PdmDevicePixelRatio ? m_ratio : QWidget::metric(which);
    }

private:
    int m_ratio;
};

qlonglong addressOf(const QObject* object) { return reinterpret_cast<qintptr>(object); }

bool comesUp(QWidget& window)
{
    window.show();
    window.activateWindow();
    return QTest::qWaitForWindowActive(&window);
}

} // namespace

class tst_WindowRelations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void nullWindow();
    void children();

    void parentIsTheQtParent();
    void parentPropertyComesFirst();
    void parentPropertyWithoutAWidget_data();
    void parentPropertyWithoutAWidget();
    void deadLogicalParentIsNotFollowed();
    void attachedWindowHasItsLogicalParent();
    void setParentGivesTheOldOne();
    void setParentToNull();
    void setParentToItselfOrBelow();
    void outermostParent();

    void desktopWindow();
    void activeWindow();
    void focus();
    void capture();
    void windowFromPoint();

    void className_data();
    void className();
    void classNameOfAClassOfItsOwn();
    void classNameWithoutABuffer();
    void listBoxInfo();
    void resolution();
};

void tst_WindowRelations::nullWindow()
{
    QWidget widget;
    QCOMPARE(IsChild_X(nullptr, &widget), 0);
    QCOMPARE(IsChild_X(&widget, nullptr), 0);
    QCOMPARE(GetParent_X(nullptr), nullptr);
    QCOMPARE(SetParent_X(nullptr, &widget), nullptr);
    QCOMPARE(GetTopWindow_X(nullptr), nullptr);
    QCOMPARE(SetActiveWindow_X(nullptr), nullptr);
    QCOMPARE(SetFocus_X(nullptr), nullptr);
    QCOMPARE(SetCapture_X(nullptr), nullptr);
    QCOMPARE(GetListBoxInfo_X(nullptr), 0u);
    QCOMPARE(GetDpiForWindow_X(nullptr), 0u);
}

void tst_WindowRelations::children()
{
    QWidget parent;
    auto* const child = new QWidget(&parent);
    auto* const grandchild = new QWidget(child);
    QWidget dialog(&parent, Qt::Dialog);
    QCOMPARE(IsChild_X(&parent, child), 1);
    QCOMPARE(IsChild_X(&parent, grandchild), 1);
    QCOMPARE(IsChild_X(child, &parent), 0);
    QCOMPARE(IsChild_X(&parent, &parent), 1);
    QCOMPARE(IsChild_X(&parent, &dialog), 0); // a window of its own
}

// ------------------------------------------------------------------------------------------------------------- parents

void tst_WindowRelations::parentIsTheQtParent()
{
    QWidget parent;
    auto* const child = new QWidget(&parent);
    QCOMPARE(GetParent_X(child), &parent);
    QCOMPARE(GetParent_X(&parent), nullptr);
}

void tst_WindowRelations::parentPropertyComesFirst()
{
    QWidget parent;
    QWidget logical;
    auto* const child = new QWidget(&parent);
    child->setProperty("parent", addressOf(&logical));
    QCOMPARE(GetParent_X(child), &logical);
    child->setProperty("parent", addressOf(&parent));
    QCOMPARE(GetParent_X(child), &parent);
    QWidget alone;
    alone.setProperty("parent", addressOf(&logical));
    QCOMPARE(GetParent_X(&alone), &logical);
}

void tst_WindowRelations::parentPropertyWithoutAWidget_data()
{
    QTest::addColumn<QVariant>("property");
    QTest::newRow("null") << QVariant(0LL);
    QTest::newRow("no address") << QVariant(QStringLiteral("main"));
    QTest::newRow("an object that is no widget") << QVariant(addressOf(this));
    QTest::newRow("an address of nothing") << QVariant(0x1234LL);
}

void tst_WindowRelations::parentPropertyWithoutAWidget()
{
    QFETCH(QVariant, property);
    QWidget parent;
    auto* const child = new QWidget(&parent);
    child->setProperty("parent", property);
    QCOMPARE(GetParent_X(child), &parent);
    parent.setProperty("parent", property);
    QCOMPARE(GetParent_X(&parent), nullptr);
}

void tst_WindowRelations::deadLogicalParentIsNotFollowed()
{
    QWidget parent;
    auto* const child = new QWidget(&parent);
    {
        QWidget logical;
        child->setProperty("parent", addressOf(&logical));
    }
    QCOMPARE(GetParent_X(child), &parent);
}

void tst_WindowRelations::attachedWindowHasItsLogicalParent()
{
    QWidget logical;
    QWidget parent;
    QWidget child(&parent);
    CWnd_X wrapper;
    QVERIFY(wrapper.Attach(&child, &logical, true));
    QCOMPARE(GetParent_X(&child), &logical);
    wrapper.Detach();
    QCOMPARE(GetParent_X(&child), &parent);
}

void tst_WindowRelations::setParentGivesTheOldOne()
{
    QWidget first;
    QWidget second;
    QWidget logical;
    QWidget child(&first);
    QCOMPARE(SetParent_X(&child, &second), &first);
    QCOMPARE(child.parentWidget(), &second);
    QCOMPARE(child.property("parent"), QVariant(addressOf(&second)));
    QCOMPARE(GetParent_X(&child), &second);

    child.setProperty("parent", addressOf(&logical));
    QCOMPARE(SetParent_X(&child, &first), &logical); // the logical one
    QCOMPARE(GetParent_X(&child), &first);
    QCOMPARE(child.parentWidget(), &first);
}

void tst_WindowRelations::setParentToNull()
{
    QWidget parent;
    QWidget child(&parent);
    QCOMPARE(SetParent_X(&child, nullptr), &parent);
    QCOMPARE(child.parentWidget(), nullptr);
    QCOMPARE(child.property("parent").toLongLong(), 0LL);
    QCOMPARE(GetParent_X(&child), nullptr);
    QCOMPARE(SetParent_X(&child, &parent), nullptr);
    QCOMPARE(GetParent_X(&child), &parent);
}

void tst_WindowRelations::setParentToItselfOrBelow()
{
    QWidget outer;
    QWidget frame(&outer);
    QWidget child(&frame);
    QWidget dialog(&child, Qt::Dialog);
    QWidget inDialog(&dialog);
    CWnd_X window;
    window.SubclassWindow(&frame);
    for (QWidget* parent : {&frame, &child, &dialog, &inDialog}) {
        QCOMPARE(SetParent_X(&frame, parent), nullptr);
        QCOMPARE(window.SetParent(parent), nullptr);
        QCOMPARE(frame.parentWidget(), &outer);
        QCOMPARE(GetParent_X(&frame), &outer);
    }
}

void tst_WindowRelations::outermostParent()
{
    QWidget top;
    QWidget other;
    auto* const dialog = new QWidget(&top, Qt::Dialog);
    auto* const child = new QWidget(dialog);
    child->setProperty("parent", addressOf(&other)); // only Qt parents count
    QCOMPARE(GetTopWindow_X(child), &top);
    QCOMPARE(GetTopWindow_X(dialog), &top);
    QCOMPARE(GetTopWindow_X(&top), nullptr);
}

// --------------------------------------------------------------------------------------------- desktop, focus, capture

void tst_WindowRelations::desktopWindow() { QCOMPARE(GetDesktopWindow_X(), QApplication::desktop()); }

void tst_WindowRelations::activeWindow()
{
    QWidget first;
    QWidget second;
    QCOMPARE(GetActiveWindow_X(), nullptr);
    QVERIFY(comesUp(second));
    QVERIFY(comesUp(first));
    QCOMPARE(GetActiveWindow_X(), &first);
    QCOMPARE(SetActiveWindow_X(nullptr), &first);
    QCOMPARE(GetActiveWindow_X(), &first);
    QCOMPARE(SetActiveWindow_X(&second), &first);
    QTRY_COMPARE(GetActiveWindow_X(), &second);
}

void tst_WindowRelations::focus()
{
    QWidget window;
    auto* const first = new QWidget(&window); // one that Tab and mouse do not give it to
    auto* const second = new QLineEdit(&window);
    QCOMPARE(GetFocus_X(), nullptr);
    QVERIFY(comesUp(window));
    second->setFocus();
    QCOMPARE(GetFocus_X(), second);
    QCOMPARE(SetFocus_X(first), second);
    QCOMPARE(GetFocus_X(), first);
    QCOMPARE(SetFocus_X(nullptr), first);
    QCOMPARE(GetFocus_X(), first);

    QWidget other;
    auto* const third = new QLineEdit(&other);
    other.show();
    QCOMPARE(SetFocus_X(third), first); // its window becomes the active one
    QTRY_COMPARE(GetActiveWindow_X(), &other);
    QCOMPARE(GetFocus_X(), third);
}

void tst_WindowRelations::capture()
{
    QWidget first;
    QWidget second;
    QCOMPARE(GetCapture_X(), nullptr);
    QCOMPARE(ReleaseCapture_X(), 0);
    QCOMPARE(SetCapture_X(&first), nullptr);
    QCOMPARE(GetCapture_X(), &first);
    QCOMPARE(SetCapture_X(&second), &first);
    QCOMPARE(QWidget::mouseGrabber(), &second);
    QCOMPARE(ReleaseCapture_X(), 1);
    QCOMPARE(GetCapture_X(), nullptr);
    SetCapture_X(&first);
    QCOMPARE(SetCapture_X(nullptr), &first);
    QCOMPARE(GetCapture_X(), nullptr);
}

void tst_WindowRelations::windowFromPoint()
{
    QWidget window;
    window.setGeometry(100, 80, 300, 200);
    auto* const child = new QWidget(&window);
    child->setGeometry(10, 20, 30, 40);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCOMPARE(WindowFromPoint_X({112, 102}), child);
    QCOMPARE(WindowFromPoint_X({300, 200}), &window);
    QCOMPARE(WindowFromPoint_X({700, 500}), nullptr);
}

// -------------------------------------------------------------------------------------------------------- descriptions

void tst_WindowRelations::className_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<QString>("buffer"); // of fourteen '#'
    QTest::addColumn<int>("count");
    QTest::newRow("with room to spare") << 14 << "QPushButton###" << 11;
    QTest::newRow("filled to the last element") << 11 << "QPushButton###" << 11;
    QTest::newRow("cut") << 5 << "QPush#########" << 5;
    QTest::newRow("one element") << 1 << "Q#############" << 1;
    QTest::newRow("no element") << 0 << "##############" << 0;
    QTest::newRow("negative size") << -1 << "##############" << 0;
}

void tst_WindowRelations::className()
{
    QFETCH(int, size);
    QPushButton button;
    std::wstring buffer(14, L'#');
    QTEST(GetClassName_X(&button, &buffer[0], size), "count");
    QTEST(QString::fromStdWString(buffer), "buffer");
}

class OwnWidget : public QWidget
{
    Q_OBJECT
};

void tst_WindowRelations::classNameOfAClassOfItsOwn()
{
    OwnWidget widget;
    wchar_t buffer[20] = {};
    QCOMPARE(GetClassName_X(&widget, buffer, 20), 9);
    QCOMPARE(QString::fromWCharArray(buffer), QStringLiteral("OwnWidget"));
}

void tst_WindowRelations::classNameWithoutABuffer()
{
    QWidget widget;
    wchar_t buffer[] = L"####";
    QCOMPARE(GetClassName_X(&widget, nullptr, 20), 0);
    QCOMPARE(GetClassName_X(nullptr, buffer, 4), 0);
    QCOMPARE(QString::fromWCharArray(buffer), QStringLiteral("####"));
}

void tst_WindowRelations::listBoxInfo()
{
    QListWidget list;
    QCOMPARE(GetListBoxInfo_X(&list), 0u);
    list.addItems({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
    QCOMPARE(GetListBoxInfo_X(&list), 3u);
    QComboBox box;
    box.addItem(QStringLiteral("a"));
    QCOMPARE(GetListBoxInfo_X(&box), 0u);
}

void tst_WindowRelations::resolution()
{
    QCOMPARE(GetDpiForSystem_X(), static_cast<UINT>(QGuiApplication::primaryScreen()->logicalDotsPerInch()));
    QVERIFY(GetDpiForSystem_X() > 0);

    FineWidget common(1);
    FineWidget almost(95);
    FineWidget absurd(200);
    QCOMPARE(GetDpiForWindow_X(&common), 0u);
    QCOMPARE(GetDpiForWindow_X(&almost), 0u);
    QCOMPARE(GetDpiForWindow_X(&absurd), 2u);
}

XE_TEST(tst_WindowRelations)
#include "tst_windowrelations.moc"
