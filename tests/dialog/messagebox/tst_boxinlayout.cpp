// A box that a handler of a size opens, while Qt lays out the main window around it.

#include "testclass.h"

#include <modaldriver.h>
#include <xeafxdlg.h>

#include <QMainWindow>
#include <QMessageBox>
#include <QPropertyAnimation>

namespace {

/// Opens a box as it gets its second size, and looks at the animation by which Qt gives it.
class AskingView : public CWnd_X
{
public:
    void OnMessageMap() override
    {
        using ThisClass = AskingView;
        CWnd_X::OnMessageMap();
        ON_WM_SIZE_X()
    }

    void OnSize(UINT type, int width, int height)
    {
        CWnd_X::OnSize(type, width, height);
        if (++sizes != 2)
            return;
        animation = GetSafeHwnd()->findChild<QPropertyAnimation*>();
        isAnimated = animation;
        MessageBox_X(GetSafeHwnd(), L"Keep the text?", nullptr, 0);
        livesBehindBox = animation;
    }

    int sizes = 0;
    QPointer<QPropertyAnimation> animation;
    bool isAnimated = false;
    bool livesBehindBox = false;
};

} // namespace

class tst_BoxInLayout : public QObject
{
    Q_OBJECT

private slots:
    void windowIsResizedMeanwhile();
    void animationsGoOutsideOfIt();
};

void tst_BoxInLayout::windowIsResizedMeanwhile()
{
    QMainWindow frame;
    auto* const central = new QWidget(&frame);
    AskingView view;
    view.SubclassWindow(central);
    frame.setCentralWidget(central);
    frame.resize(300, 200);
    frame.show();
    QCOMPARE(view.sizes, 1);

    const ModalDriver<QMessageBox> user([&frame](QMessageBox* box) {
        frame.resize(500, 300);
        QTimer::singleShot(0, box, [box] { box->accept(); }); // behind the turn that deletes what is to go
    });
    frame.resize(400, 250);
    QVERIFY(user.hasActed());
    QVERIFY(view.isAnimated);
    QVERIFY(view.livesBehindBox);
    QCOMPARE(central->size(), QSize(500, 300));
    QTRY_VERIFY(!view.animation);
}

// A long dialog does not pile them up.
void tst_BoxInLayout::animationsGoOutsideOfIt()
{
    QWidget owner;
    QPointer<QPropertyAnimation> animation = new QPropertyAnimation(&owner, "pos");
    bool hasGone = false;
    const ModalDriver<QMessageBox> user([&](QMessageBox* box) {
        animation->deleteLater();
        QTimer::singleShot(0, box, [&, box] {
            hasGone = !animation;
            box->accept();
        });
    });
    MessageBox_X(&owner, L"Well?", nullptr, 0);
    QVERIFY(user.hasActed());
    QVERIFY(hasGone);
}

XE_TEST(tst_BoxInLayout)
#include "tst_boxinlayout.moc"
