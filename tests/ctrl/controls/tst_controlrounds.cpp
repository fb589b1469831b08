// Dialogs with each kind of control come and go all day long, and leave nothing behind.

#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <malloc.h>

#include <QAbstractEventDispatcher>
#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include <list>
#include <memory>

namespace {

constexpr int rounds = 1000;

// ------------------------------------------------------------------------------------- what is done with each control

template <class Control>
Control& as(CWnd_X& control)
{
    return static_cast<Control&>(control);
}

const QPixmap& picture()
{
    static const QPixmap pixmap = [] {
        QPixmap made(16, 16);
        made.fill(Qt::blue);
        return made;
    }();
    return pixmap;
}

void useText(CWnd_X& control) { control.SetWindowText(L"零件"); }

void useButton(CWnd_X& control)
{
    as<CButton_X>(control).SetCheck(BST_CHECKED);
    as<CButton_X>(control).SetIcon(QIcon(picture()));
}

void useStatic(CWnd_X& control) { as<CStatic_X>(control).SetBitmap(picture()); }

void useEdit(CWnd_X& control)
{
    auto& edit = as<CEdit_X>(control);
    edit.SetWindowText(L"one\ntwo");
    edit.SetSel(0, -1);
    edit.ReplaceSel(L"three");
    edit.Undo();
}

void useCombo(CWnd_X& control)
{
    auto& combo = as<CComboBox_X>(control);
    combo.SetCurSel(combo.AddString(L"one"));
    combo.SetItemData(0, 1);
}

void useComboEx(CWnd_X& control)
{
    wchar_t text[] = L"one";
    tagCOMBOBOXEXITEMW_X item{};
    item.pszText = text;
    as<CComboBoxEx_X>(control).InsertItem(&item);
}

void useListBox(CWnd_X& control) { as<CListBox_X>(control).SetCurSel(as<CListBox_X>(control).AddString(L"one")); }

void useCheckList(CWnd_X& control)
{
    auto& list = as<CCheckListBox_X>(control);
    list.SetCheck(list.AddString(L"one"), BST_CHECKED);
}

// With its header.
void useList(CWnd_X& control)
{
    auto& list = as<CListCtrl_X>(control);
    CBitmap_X bitmap;
    bitmap.CreateCompatibleBitmap(nullptr, 16, 16);
    CImageList_X images;
    images.Add(&bitmap, nullptr);
    list.SetImageList(images, LVSIL_SMALL);
    list.AppendItemImage(picture());
    list.InsertColumn(0, L"Name", LVCFMT_LEFT, 80);
    wchar_t text[] = L"one";
    tagQLVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_IMAGE;
    item.pszText = text;
    list.InsertItem(&item);
    list.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
    list.GetHeaderCtrl()->GetItemCount();
    list.SetImageList({}, LVSIL_SMALL); // the bitmap goes
}

void useTree(CWnd_X& control)
{
    auto& tree = as<CTreeCtrl_X>(control);
    tree.AppendItemImage(picture());
    const HTREEITEM top = tree.InsertItem(L"one");
    tree.SelectItem(tree.InsertItem(L"two", 0, 0, top));
    tree.Expand(top, TVE_EXPAND);
    tree.EditLabel(top);
}

void useSlider(CWnd_X& control) { as<CSliderCtrl_X>(control).SetPos(50); }
void useScrollBar(CWnd_X& control) { as<CScrollBar_X>(control).SetScrollPos(50); }
void useSpin(CWnd_X& control) { as<CSpinButtonCtrl_X>(control).SetPos(5); }
void useTab(CWnd_X& control) { as<CTabCtrl_X>(control).InsertItem(0, L"one"); }
void useHeader(CWnd_X& control) { as<CHeaderCtrl_X>(control).GetItemCount(); }

void useProgress(CWnd_X& control)
{
    as<CProgressCtrl_X>(control).SetRange(0, 100);
    as<CProgressCtrl_X>(control).StepIt();
}

void useDate(CWnd_X& control)
{
    const _SYSTEMTIME day{2026, 3, 0, 31, 0, 0, 0, 0};
    as<CDateTimeCtrl_X>(control).SetTime(&day);
}

void useCalendar(CWnd_X& control) { as<CMonthCalCtrl_X>(control).SetCurSel(QDate(2026, 3, 31)); }

// ----------------------------------------------------------------------------------------------------------- the kinds

template <class Widget>
QWidget* makeWidget(QWidget* parent)
{
    return new Widget(parent);
}

QWidget* makeHeader(QWidget* parent) { return new QHeaderView(Qt::Horizontal, parent); }

struct Kind
{
    QWidget* (*make)(QWidget* parent);
    const CRuntimeClass_X* controlClass;
    void (*use)(CWnd_X& control);
};

const Kind kinds[] = {
    {makeWidget<QPushButton>, RUNTIME_CLASS_X(CButton_X), useButton},
    {makeWidget<QCheckBox>, RUNTIME_CLASS_X(CButton_X), useButton},
    {makeWidget<QRadioButton>, RUNTIME_CLASS_X(CButton_X), useButton},
    {makeWidget<QGroupBox>, RUNTIME_CLASS_X(CButton_X), useText},
    {makeWidget<QLabel>, RUNTIME_CLASS_X(CStatic_X), useStatic},
    {makeWidget<QLineEdit>, RUNTIME_CLASS_X(CEdit_X), useEdit},
    {makeWidget<QTextEdit>, RUNTIME_CLASS_X(CEdit_X), useEdit},
    {makeWidget<QTextEdit>, RUNTIME_CLASS_X(CRichEditCtrl_X), useText},
    {makeWidget<QComboBox>, RUNTIME_CLASS_X(CComboBox_X), useCombo},
    {makeWidget<QComboBox>, RUNTIME_CLASS_X(CComboBoxEx_X), useComboEx},
    {makeWidget<QListWidget>, RUNTIME_CLASS_X(CListBox_X), useListBox},
    {makeWidget<QListWidget>, RUNTIME_CLASS_X(CCheckListBox_X), useCheckList},
    {makeWidget<QTableWidget>, RUNTIME_CLASS_X(CListCtrl_X), useList},
    {makeWidget<QTreeWidget>, RUNTIME_CLASS_X(CTreeCtrl_X), useTree},
    {makeHeader, RUNTIME_CLASS_X(CHeaderCtrl_X), useHeader},
    {makeWidget<QSlider>, RUNTIME_CLASS_X(CSliderCtrl_X), useSlider},
    {makeWidget<QScrollBar>, RUNTIME_CLASS_X(CScrollBar_X), useScrollBar},
    {makeWidget<QProgressBar>, RUNTIME_CLASS_X(CProgressCtrl_X), useProgress},
    {makeWidget<QSpinBox>, RUNTIME_CLASS_X(CSpinButtonCtrl_X), useSpin},
    {makeWidget<QDoubleSpinBox>, RUNTIME_CLASS_X(CSpinButtonCtrl_X), useSpin},
    {makeWidget<QTabWidget>, RUNTIME_CLASS_X(CTabCtrl_X), useTab},
    {makeWidget<QDateEdit>, RUNTIME_CLASS_X(CDateTimeCtrl_X), useDate},
    {makeWidget<QCalendarWidget>, RUNTIME_CLASS_X(CMonthCalCtrl_X), useCalendar},
};

QString nameOf(const Kind& kind) { return QString::number(&kind - kinds); }

// ---------------------------------------------------------------------------------------------------------- the dialog

// Has one control of each kind, and a tip for each.
class KindsDialog : public CDialog_X
{
public:
    explicit KindsDialog(bool creates) : m_creates(creates)
    {
        for (const Kind& kind : kinds)
            m_controls.emplace_back(static_cast<CWnd_X*>(kind.controlClass->CreateObject()));
    }

    int PreTranslateMessage(tagMSG* message) override
    {
        m_tips.RelayEvent(message);
        return CDialog_X::PreTranslateMessage(message);
    }

    int used = 0;

protected:
    void SetupUI() override
    {
        for (const Kind& kind : kinds) {
            if (!m_creates)
                kind.make(GetSafeHwnd())->setObjectName(nameOf(kind));
        }
    }

    void DoDataExchange(CDataExchange_X* exchange) override
    {
        auto control = m_controls.begin();
        for (const Kind& kind : kinds) {
            if (!m_creates)
                DDX_Control(exchange, qPrintable(nameOf(kind)), **control);
            ++control;
        }
    }

    BOOL OnInitDialog() override
    {
        CDialog_X::OnInitDialog();
        m_tips.Create(this);
        auto kind = std::begin(kinds);
        for (const auto& control : m_controls) {
            if (m_creates)
                control->Create(GetSafeHwnd());
            kind->use(*control);
            m_tips.AddTool(control.get(), m_texts.emplace_back(nameOf(*kind)));
            used += control->GetSafeHwnd() ? 1 : 0;
            ++kind;
        }
        m_tips.Activate(TRUE);
        QTimer::singleShot(0, GetSafeHwnd(), [this] { end(); });
        return TRUE;
    }

private:
    void end()
    {
        QWidget* const under = m_controls.front()->GetSafeHwnd();
        QMouseEvent move(QEvent::MouseMove, {1, 1}, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(under, &move);
        used += under->toolTip() == nameOf(kinds[0]) ? 1 : 0;
        EndDialog(IDOK);
    }

    const bool m_creates;
    std::vector<std::unique_ptr<CWnd_X>> m_controls;
    std::list<CString_X> m_texts; // a tip has the address of its text
    CToolTipCtrl_X m_tips;
};

// What is there of things that a control could leave.
QString traces()
{
    return QStringLiteral("%1 widgets, %2 and %3 timers, cursor %4")
        .arg(QApplication::allWidgets().size())
        .arg(GetGlobalEventHandler()->timers.size())
        .arg(QAbstractEventDispatcher::instance()->registeredTimers(qApp).size())
        .arg(QGuiApplication::overrideCursor() != nullptr);
}

std::size_t memoryInUse() { return mallinfo2().uordblks; }

} // namespace

class tst_ControlRounds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void leaveNothingBehind();
};

// Controls of a form and controls that are created take turns.
void tst_ControlRounds::leaveNothingBehind()
{
    const auto run = [](int round) {
        KindsDialog dialog(round % 2);
        const bool ended = dialog.DoModal() == IDOK;
        LeaveNothing::leftovers(); // settles
        return ended && dialog.used == int(std::size(kinds)) + 1;
    };
    for (int round = 0; round < rounds / 10; ++round)
        QVERIFY(run(round)); // Qt sets up what it keeps
    const QString before = traces();
    const std::size_t memory = memoryInUse();
    for (int round = 0; round < rounds; ++round)
        QVERIFY(run(round));
    QCOMPARE(traces(), before);
    const auto growth = static_cast<long long>(memoryInUse()) - static_cast<long long>(memory);
    QVERIFY2(growth < rounds * 24, qPrintable(QString::number(growth))); // an object of each is more
}

XE_TEST(tst_ControlRounds)
#include "tst_controlrounds.moc"
