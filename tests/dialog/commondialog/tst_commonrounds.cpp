// Common dialogs come and go all day long and leave nothing behind.

#include "testclass.h"

#include <leavenothing.h>

#include <QAbstractEventDispatcher>
#include <QTimer>
#include <xeafxdlgs.h>

namespace {

constexpr int rounds = 250; // of four dialogs each

// The application's state that a dialog could leave something in.
QString traces()
{
    return QStringLiteral("%1 widgets, %2 timers")
        .arg(QApplication::allWidgets().size())
        .arg(QAbstractEventDispatcher::instance()->registeredTimers(qApp).size());
}

// One that is over before it is shown.
template <class Dialog>
class Brief : public Dialog
{
public:
    using Dialog::Dialog;
    BOOL OnInitDialog() override
    {
        const BOOL result = Dialog::OnInitDialog();
        this->EndDialog(7);
        return result;
    }
};

void runOnce()
{
    Brief<CCommonDialog_X> common(static_cast<QWidget*>(nullptr));
    Brief<CFileDialog_X> file(TRUE, L"csv", L"parts", OFN_ALLOWMULTISELECT, L"A (*.a)|*.a|All (*.*)|*.*||", nullptr);
    Brief<CColorDialog_X> color(RGB(1, 2, 3), 0, nullptr);
    Brief<CPrintDialog_X> print(FALSE, 0, nullptr);
    QCOMPARE(common.DoModal(), 7);
    QCOMPARE(file.DoModal(), 7);
    QCOMPARE(color.DoModal(), 7);
    QCOMPARE(print.DoModal(), 7);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

class tst_CommonRounds : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void plainCommonDialog();
    void leaveNothingBehind();
};

void tst_CommonRounds::plainCommonDialog()
{
    const std::unique_ptr<CObject_X> made(RUNTIME_CLASS_X(CCommonDialog_X)->CreateObject());
    QVERIFY(made && made->IsKindOf(RUNTIME_CLASS_X(CDialog_X)));
    QCOMPARE(made->GetClassName(), "CCommonDialog_X");
    QWidget widget;
    CWnd_X window;
    QVERIFY(window.SubclassWindow(&widget));
    CCommonDialog_X ofWidget(&widget);
    CCommonDialog_X ofWindow(&window);
    CCommonDialog_X ofNobody(nullptr);
    const QWidget* const parents[] = {&widget, &widget, nullptr};
    int place = 0;
    for (CCommonDialog_X* dialog : {&ofWidget, &ofWindow, &ofNobody}) {
        const QWidget* parent = dialog->GetSafeHwnd();
        QTimer::singleShot(0, [&] {
            parent = dialog->GetSafeHwnd()->parentWidget();
            dialog->EndDialog(IDOK);
        });
        QCOMPARE(dialog->DoModal(), IDOK);
        QCOMPARE(parent, parents[place++]);
    }
}

void tst_CommonRounds::leaveNothingBehind()
{
    runOnce(); // Qt sets up what it keeps
    const QString before = traces();
    for (int round = 0; round < rounds; ++round)
        runOnce();
    QCOMPARE(traces(), before);
}

XE_TEST(tst_CommonRounds)
#include "tst_commonrounds.moc"
