// What the classes of controls have in common: which wrapper a widget gets, what wrapping leaves alone, and that
// dialogs full of controls leave nothing.

#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <private/qobject_p.h> // who filters an object's events

#include <QCheckBox>
#include <QFontComboBox>
#include <QListWidget>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>

#include <map>
#include <memory>

// A class of a host's, which does not take its base's place.
class CHostEdit : public CEdit_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CHostEdit)
};
IMPLEMENT_DYNCREATE_X(CHostEdit, CEdit_X)

namespace {

using Maker = QWidget* (*)(QWidget* parent);

template <class Widget>
QWidget* make(QWidget* parent)
{
    return new Widget(parent);
}

struct Row
{
    const char* widget;
    Maker make;
    const char* fromHandle;              // the class of a widget without a wrapper
    const CRuntimeClass_X* controlClass; // the class that a host wraps it by
};

const Row rows[] = {
    {"QPushButton", make<QPushButton>, "CWnd_X", RUNTIME_CLASS_X(CButton_X)},
    {"QCheckBox", make<QCheckBox>, "CWnd_X", RUNTIME_CLASS_X(CButton_X)},
    {"QRadioButton", make<QRadioButton>, "CWnd_X", RUNTIME_CLASS_X(CButton_X)},
    {"QGroupBox", make<QGroupBox>, "CWnd_X", RUNTIME_CLASS_X(CButton_X)},
    {"QLabel", make<QLabel>, "CStatic_X", RUNTIME_CLASS_X(CStatic_X)},
    {"QLineEdit", make<QLineEdit>, "CEdit_X", RUNTIME_CLASS_X(CEdit_X)},
    {"QTextEdit", make<QTextEdit>, "CEdit_X", RUNTIME_CLASS_X(CEdit_X)},
    {"QTextEdit for rich text", make<QTextEdit>, "CEdit_X", RUNTIME_CLASS_X(CRichEditCtrl_X)},
    {"QTextEdit for a host's class", make<QTextEdit>, "CEdit_X", RUNTIME_CLASS_X(CHostEdit)},
    {"QComboBox", make<QComboBox>, "CComboBox_X", RUNTIME_CLASS_X(CComboBox_X)},
    {"QFontComboBox", make<QFontComboBox>, "CComboBox_X", RUNTIME_CLASS_X(CComboBox_X)},
    {"QComboBox with pictures", make<QComboBox>, "CComboBox_X", RUNTIME_CLASS_X(CComboBoxEx_X)},
    {"QListWidget", make<QListWidget>, "CListBox_X", RUNTIME_CLASS_X(CListBox_X)},
    {"QListWidget with boxes", make<QListWidget>, "CListBox_X", RUNTIME_CLASS_X(CCheckListBox_X)},
};

using Window = std::unique_ptr<CWnd_X>;

Window windowOf(const CRuntimeClass_X* controlClass)
{
    return Window(static_cast<CWnd_X*>(controlClass->CreateObject()));
}

int filtersOf(const QObject& object)
{
    const auto* const extra = QObjectPrivate::get(const_cast<QObject*>(&object))->extraData;
    if (!extra)
        return 0;
    return static_cast<int>(std::count_if(extra->eventFilters.cbegin(), extra->eventFilters.cend(),
                                          [](const QPointer<QObject>& filter) { return !filter.isNull(); }));
}

class FormDialog : public CDialog_X
{
public:
    void SetupUI() override
    {
        for (const Row& row : rows) {
            if (row.make != make<QFontComboBox>) // takes long: it lists all fonts
                row.make(GetSafeHwnd())->setObjectName(QString::fromLatin1(row.widget));
        }
    }
    void DoDataExchange(CDataExchange_X* exchange) override
    {
        for (const Row& row : rows) {
            if (!GetChildWidget(row.widget))
                continue;
            Window& control = controls[QLatin1String(row.widget)];
            if (!control)
                control = windowOf(row.controlClass);
            DDX_Control(exchange, row.widget, *control);
        }
    }
    std::map<QLatin1String, Window> controls;
};

// What the event loop does in its next round. Posted events that pile up are searched by each object that goes.
void settle()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

Q_DECLARE_METATYPE(Maker)
Q_DECLARE_METATYPE(const Row*)

class tst_Controls : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void aWidgetGetsItsClass_data();
    void aWidgetGetsItsClass();
    void wrappingLeavesTheWindowAlone_data() { eachRow(); }
    void wrappingLeavesTheWindowAlone();
    void theMenuBarComesWithTheFirstMenu_data() { eachRow(); }
    void theMenuBarComesWithTheFirstMenu();
    void setWindowTextReachesTheControl_data() { eachRow(); }
    void setWindowTextReachesTheControl();
    void exchangedControlsAreTheDialogs();
    void dialogsOfControlsLeaveNothing();

private:
    static void eachRow()
    {
        QTest::addColumn<const Row*>("row");
        for (const Row& row : rows)
            QTest::newRow(row.widget) << &row;
    }
};

void tst_Controls::aWidgetGetsItsClass_data()
{
    QTest::addColumn<Maker>("make");
    QTest::addColumn<QString>("name");
    for (const Row& row : rows)
        QTest::newRow(row.widget) << row.make << QString::fromLatin1(row.fromHandle);
    QTest::newRow("QPlainTextEdit") << Maker(make<QPlainTextEdit>) << "CWnd_X";
}

void tst_Controls::aWidgetGetsItsClass()
{
    QFETCH(Maker, make);
    QFETCH(QString, name);
    QWidget form;
    QWidget* const widget = make(&form);
    widget->setObjectName(QStringLiteral("IDC_IT"));
    CWnd_X window;
    window.SubclassWindow(&form);
    CWnd_X* const wrapper = CWnd_X::FromHandle(widget);
    QCOMPARE(QString::fromLatin1(wrapper->GetClassName()), name);
    QCOMPARE(QString::fromLatin1(wrapper->GetRuntimeClass()->GetClassName()), name);
    QCOMPARE(window.GetDlgItem("IDC_IT"), wrapper);
}

void tst_Controls::wrappingLeavesTheWindowAlone()
{
    QFETCH(const Row*, row);
    QWidget form;
    QWidget page(&form);
    QWidget* const widget = row->make(&page);
    const int filters[] = {filtersOf(form), filtersOf(page), filtersOf(*widget)};
    const QObjectList children = widget->children();
    const Window window = windowOf(row->controlClass);
    QCOMPARE(window->SubclassWindow(widget), 1);
    QCOMPARE(filtersOf(form), filters[0]);
    QCOMPARE(filtersOf(page), filters[1]);
    QCOMPARE(filtersOf(*widget), filters[2] + 1);
    QCOMPARE(widget->children(), children);
    window->Detach();
    QCOMPARE(filtersOf(*widget), filters[2]);
}

void tst_Controls::theMenuBarComesWithTheFirstMenu()
{
    QFETCH(const Row*, row);
    QWidget form;
    QWidget* const widget = row->make(&form);
    const Window window = windowOf(row->controlClass);
    CMenu_X menu(&form);
    QCOMPARE(window->SetMenu(&menu), 0);
    window->SubclassWindow(widget);
    QVERIFY(!widget->findChild<QMenuBar*>());
    QCOMPARE(window->SetMenu(&menu), 1);
    QVERIFY(!widget->findChild<QMenuBar*>()->isHidden());
    QCOMPARE(window->SetMenu(nullptr), 1);
    QVERIFY(widget->findChild<QMenuBar*>()->isHidden());
    QCOMPARE(filtersOf(form), 0);
    window->Detach();
    settle();
    QVERIFY(!widget->findChild<QMenuBar*>());
}

void tst_Controls::setWindowTextReachesTheControl()
{
    QFETCH(const Row*, row);
    QWidget form;
    QWidget* const widget = row->make(&form);
    if (auto* const box = qobject_cast<QComboBox*>(widget))
        box->setEditable(true);
    const Window window = windowOf(row->controlClass);
    window->SubclassWindow(widget);
    QCOMPARE(SetWindowText_X(widget, L"零件"), TRUE);
    CString_X text;
    window->GetWindowText(text);
    QCOMPARE(text, CString_X(L"零件"));
}

void tst_Controls::exchangedControlsAreTheDialogs()
{
    FormDialog dialog;
    dialog.CWnd_X::Create(static_cast<QWidget*>(nullptr));
    QCOMPARE(dialog.UpdateData(FALSE), TRUE);
    QCOMPARE(dialog.controls.size(), std::size(rows) - 1);
    for (const auto& [name, control] : dialog.controls)
        QCOMPARE(dialog.GetDlgItem(name.data()), control.get());
    dialog.DestroyWindow();
}

void tst_Controls::dialogsOfControlsLeaveNothing()
{
    for (int i = 0; i < 1000; ++i) {
        FormDialog dialog;
        dialog.CWnd_X::Create(static_cast<QWidget*>(nullptr));
        dialog.UpdateData(FALSE);
        if (i % 2)
            dialog.DestroyWindow();
        settle();
    }
    QCOMPARE(QApplication::allWidgets().size(), 0);
}

XE_TEST(tst_Controls)
#include "tst_controls.moc"
