#include "inputwalk.h"

#include "mainframe.h"
#include "walkdice.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCalendarWidget>
#include <QDialog>
#include <QFileDialog>
#include <QMessageBox>
#include <QPrintDialog>
#include <QScrollBar>
#include <QSplitterHandle>
#include <XeGridCtrl.h>

#include <cstdio>

namespace {

// Steps.
constexpr int shortestLife = 100;
constexpr int longestLife = 700;
constexpr int longInDialog = 60;
constexpr int longInMenu = 25;
constexpr int stuck = 400;

constexpr const char* keys[] = {"Tab",      "Tab",  "Return", "Return",     "Escape", "Escape", "Up",
                                "Down",     "Down", "Left",   "Right",      "Prior",  "Next",   "Home",
                                "End",      "F2",   "Delete", "BackSpace",  "space",  "Insert", "Menu",
                                "KP_Enter", "F3",   "F10",    "Shift_L Tab"};
constexpr const char* modifiers[] = {"Shift_L", "Control_L"};
constexpr const char* movingKeys[] = {"Up", "Down", "Left", "Right", "Prior", "Next", "Home", "End", "Tab", "space"};
constexpr const char* shortcuts[] = {"Control_L a", "Control_L c",         "Control_L x", "Control_L v", "Control_L z",
                                     "Control_L f", "Control_L e",         "Control_L n", "Control_L u", "Control_L i",
                                     "Control_L o", "Control_L s",         "Control_L p", "Control_L c", "Control_L v",
                                     "Control_L x", "Control_L Shift_L s", "F12",         "Alt_L f",     "Alt_L p",
                                     "Alt_L v",     "Alt_L Down",          "Control_L a"};
// What a keyboard has without Shift. A path cannot be written with it.
constexpr const char* texts[] = {"0",  "7", "60",   "250", "99999", "3.65", "-1",
                                 "be", "f", "seal", "a-1", " ",     "q;",   ","};

int milliseconds(WalkDice& dice)
{
    const int place = dice.below(100);
    if (place < 80)
        return 1;
    if (place < 95)
        return 25;
    return place < 99 ? 160 : 600; // a pressed button cell, a double click, a title tip
}

QPoint pointIn(WalkDice& dice, const QRect& rect)
{
    return {rect.left() + dice.below(rect.width()), rect.top() + dice.below(rect.height())};
}

QString describe(const QWidget& widget)
{
    const auto* const box = qobject_cast<const QMessageBox*>(&widget);
    return QStringLiteral("%1 '%2'%3")
        .arg(QLatin1String(widget.metaObject()->className()), box ? box->text().simplified() : widget.windowTitle(),
             widget.isEnabled() ? QString() : QStringLiteral(", which is disabled"));
}

// A question that has to be answered is answered by its last button, which is "no".
void leave(QWidget& window)
{
    auto* const box = qobject_cast<QMessageBox*>(&window);
    QAbstractButton* const no = box ? box->button(QMessageBox::No) : nullptr;
    if (no)
        no->click();
    else if (!window.close() && box)
        box->buttons().constLast()->click();
}

} // namespace

const InputWalk::Kind InputWalk::kinds[] = {
    {12, &InputWalk::planText},      {24, &InputWalk::planKey},     {8, &InputWalk::planKeyWithModifier},
    {10, &InputWalk::planShortcut},  {14, &InputWalk::planClick},   {8, &InputWalk::planDrag},
    {16, &InputWalk::planGridClick}, {7, &InputWalk::planGridDrag}, {5, &InputWalk::planDivider},
    {6, &InputWalk::planWheel},      {2, &InputWalk::planSize},     {2, &InputWalk::planActivation},
    {1, &InputWalk::planClosing},
};

InputWalk::InputWalk(unsigned seed, QString folder) : m_seed(seed), m_folder(std::move(folder))
{
    if (!m_user.isUsable())
        qFatal("no X server with XTEST");
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &InputWalk::step);
    qApp->installEventFilter(this);
}

// A calendar of Qt's that goes while a date is typed into it leaves something behind.
bool InputWalk::eventFilter(QObject* target, QEvent* event)
{
    if (event->type() == QEvent::Polish) {
        if (auto* const calendar = qobject_cast<QCalendarWidget*>(target))
            calendar->setDateEditEnabled(false);
    }
    return false;
}

void InputWalk::begin(CMainFrame& frame)
{
    m_frame = &frame;
    WalkDice dice(m_seed, static_cast<unsigned>(m_step));
    m_lastStep = m_step + shortestLife + dice.below(longestLife - shortestLife);
    m_timer.start(0);
}

void InputWalk::end()
{
    m_timer.stop();
    m_actions.clear();
    m_user.releaseAll();
    m_frame = nullptr;
}

// ----------------------------------------------------------------------------------------------------------- the steps

void InputWalk::tell(const QString& what)
{
    std::printf("%d %s\n", m_step, qPrintable(what));
    std::fflush(stdout);
}

void InputWalk::later(const QString& what, std::function<void()> act) { m_actions.enqueue({what, std::move(act)}); }

void InputWalk::act(const Action& action)
{
    tell(action.what);
    action.act();
}

// The next step has its time before this one is done, which may open a dialog.
void InputWalk::step()
{
    WalkDice dice(m_seed, static_cast<unsigned>(++m_step));
    m_timer.start(milliseconds(dice));
    if (!m_frame->GetSafeHwnd()) {
        tell(QStringLiteral("the window has gone"));
        QCoreApplication::quit();
    } else if (m_step > m_lastStep) {
        closeWindow();
    } else {
        walkOn(dice);
    }
}

void InputWalk::walkOn(WalkDice& dice)
{
    if (answerFileDialog(dice) || leaveWhatTakesLong())
        return;
    while (m_actions.isEmpty())
        (this->*dice.kindOf(kinds).plan)(dice);
    act(m_actions.dequeue());
}

// One step on the way to the end: whatever is open is closed, and nothing is saved.
void InputWalk::closeWindow()
{
    m_user.releaseAll();
    m_actions.clear();
    if (m_step > m_lastStep + stuck)
        qFatal("the window does not close");
    if (QWidget* const popup = QApplication::activePopupWidget()) {
        act({QStringLiteral("closes ") + describe(*popup), [popup] { popup->close(); }});
    } else if (QWidget* const modal = QApplication::activeModalWidget()) {
        act({QStringLiteral("leaves ") + describe(*modal), [modal] { leave(*modal); }});
    } else {
        act({QStringLiteral("closes the window"), [this] { m_frame->GetSafeHwnd()->close(); }});
    }
}

// No key or click gets to a dialog that could write anywhere: it gets a file of the folder, or is left.
bool InputWalk::answerFileDialog(WalkDice& dice)
{
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    auto* const fileDialog = qobject_cast<QFileDialog*>(dialog);
    auto* const printDialog = qobject_cast<QPrintDialog*>(dialog);
    if (!fileDialog && !printDialog)
        return false;
    m_actions.clear();
    m_user.releaseAll();
    if (dice.oneIn(3)) {
        act({QStringLiteral("leaves ") + describe(*dialog), [=] { dialog->reject(); }});
        return true;
    }
    static constexpr const char* names[] = {"parts.csv", "few.csv", "bad.csv", "saved.csv", "saved.parts"};
    const QString name = m_folder + QLatin1Char('/') + QLatin1String(dice.oneOf(names));
    act({QStringLiteral("gives %1 to %2").arg(name, describe(*dialog)), [=] {
             if (fileDialog && fileDialog->testOption(QFileDialog::ShowDirsOnly))
                 fileDialog->selectFile(m_folder);
             else if (fileDialog)
                 fileDialog->selectFile(name);
             dialog->accept();
         }});
    return true;
}

// So that the walk comes to other places too, and to see whether they can be left.
bool InputWalk::leaveWhatTakesLong()
{
    QWidget* const popup = QApplication::activePopupWidget();
    QWidget* const inside = popup ? popup : QApplication::activeModalWidget();
    m_stepsInside = inside && inside == m_lingering ? m_stepsInside + 1 : 0;
    m_lingering = inside;
    if (m_stepsInside == stuck)
        qFatal("stuck in %s", qPrintable(describe(*inside)));
    const int longest = popup ? longInMenu : longInDialog;
    if (m_stepsInside < longest || m_stepsInside % 5 != 0)
        return false;
    m_actions.clear();
    m_user.releaseAll();
    if (m_stepsInside < 2 * longest)
        act({QStringLiteral("wants to leave ") + describe(*inside),
             [this] { m_user.press(QStringLiteral("Escape")); }});
    else
        act({QStringLiteral("closes ") + describe(*inside), [inside] { leave(*inside); }});
    return true;
}

// ---------------------------------------------------------------------------------------------------- what is aimed at

QWidget* InputWalk::window() const
{
    if (QWidget* const popup = QApplication::activePopupWidget())
        return popup;
    if (QWidget* const modal = QApplication::activeModalWidget())
        return modal;
    QWidget* const active = QApplication::activeWindow();
    return active ? active : m_frame->GetSafeHwnd();
}

QWidget* InputWalk::someWidget(WalkDice& dice) const
{
    QWidgetList widgets{window()};
    const QList<QWidget*> children = window()->findChildren<QWidget*>();
    for (QWidget* child : children) {
        if (child->isVisible() && child->window() == window())
            widgets += child;
    }
    return dice.oneOf(widgets);
}

QPoint InputWalk::somePlace(WalkDice& dice) const
{
    QWidget* const widget = someWidget(dice);
    return widget->mapToGlobal(pointIn(dice, widget->rect()));
}

CGridCtrl_X* InputWalk::someGrid(WalkDice& dice) const
{
    QVector<CGridCtrl_X*> grids;
    const QList<QWidget*> children = window()->findChildren<QWidget*>();
    for (QWidget* child : children) {
        auto* const grid = qobject_cast<CGridCtrl_X*>(CWnd_X::FromHandlePermanent(child));
        if (grid && child->isVisible() && child->window() == window())
            grids += grid;
    }
    return grids.isEmpty() ? nullptr : dice.oneOf(grids);
}

// A place in a cell that can be seen, mostly; null where there is no grid.
QPoint InputWalk::someCell(WalkDice& dice) const
{
    CGridCtrl_X* const grid = someGrid(dice);
    if (!grid)
        return {};
    const int top = grid->GetTopleftNonFixedCell().row;
    CRect cell;
    const int row = dice.oneIn(8) ? dice.below(grid->m_nFixedRows) : top + dice.below(18);
    if (!grid->GetCellRect(row, dice.below(grid->m_nCols), &cell) || cell.Width() < 1 || cell.Height() < 1)
        return {};
    const QRect rect(cell.left, cell.top, cell.Width(), cell.Height());
    return grid->GetSafeHwnd()->mapToGlobal(pointIn(dice, rect));
}

// -------------------------------------------------------------------------------------------------------- the keyboard

void InputWalk::planPress(const QString& names)
{
    later(QStringLiteral("presses ") + names, [=] { m_user.press(names); });
}

void InputWalk::planModifier(const char* key, bool down)
{
    if (key)
        later(QStringLiteral("%1 %2").arg(down ? QStringLiteral("holds") : QStringLiteral("lets go of"), key),
              [=] { m_user.setNamedKey(key, down); });
}

void InputWalk::planText(WalkDice& dice)
{
    const QString text = QLatin1String(dice.oneOf(texts));
    later(QStringLiteral("types ") + text, [=] { m_user.type(text); });
}

void InputWalk::planKey(WalkDice& dice)
{
    const QString key = QLatin1String(dice.oneOf(keys));
    for (int i = dice.oneIn(4) ? dice.below(5) : 0; i >= 0; --i)
        planPress(key);
}

void InputWalk::planKeyWithModifier(WalkDice& dice)
{
    planPress(QLatin1String(dice.oneOf(modifiers)) + QLatin1Char(' ') + QLatin1String(dice.oneOf(movingKeys)));
}

void InputWalk::planShortcut(WalkDice& dice) { planPress(QLatin1String(dice.oneOf(shortcuts))); }

// --------------------------------------------------------------------------------------------------------- the pointer

void InputWalk::planMove(QPoint place)
{
    later(QStringLiteral("moves to %1,%2").arg(place.x()).arg(place.y()), [=] { m_user.movePointer(place); });
}

// A button goes down inside the program's own windows only: what is behind them belongs to the window manager.
void InputWalk::planButton(unsigned button, bool down)
{
    later(
        QStringLiteral("%1 button %2").arg(down ? QStringLiteral("presses") : QStringLiteral("lets go of")).arg(button),
        [=] {
            if (!down || QApplication::widgetAt(QCursor::pos()))
                m_user.setButton(button, down);
        });
}

void InputWalk::planClicks(WalkDice& dice, QPoint place)
{
    if (place.isNull())
        return;
    planMove(place);
    const unsigned button = dice.oneIn(6) ? 3 : 1;
    const char* const held = dice.oneIn(5) ? dice.oneOf(modifiers) : nullptr;
    planModifier(held, true);
    for (int i = dice.oneIn(4) ? 1 : 0; i >= 0; --i) {
        planButton(button, true);
        planButton(button, false);
    }
    planModifier(held, false);
}

void InputWalk::planClick(WalkDice& dice) { planClicks(dice, somePlace(dice)); }

void InputWalk::planGridClick(WalkDice& dice) { planClicks(dice, someCell(dice)); }

void InputWalk::planDragTo(WalkDice& dice, QPoint from, QPoint to)
{
    if (from.isNull())
        return;
    planMove(from);
    planButton(1, true);
    const int moves = 1 + dice.below(5);
    for (int i = 1; i <= moves; ++i)
        planMove(from + (to - from) * i / moves);
    if (dice.oneIn(4))
        planPress(QLatin1String(dice.oneOf(keys)));
    planButton(1, false);
}

// Of a scroll bar or the splitter, or of whatever is there.
void InputWalk::planDrag(WalkDice& dice)
{
    QWidgetList handles;
    const QList<QWidget*> children = window()->findChildren<QWidget*>();
    for (QWidget* child : children) {
        if (child->isVisible() && (qobject_cast<QScrollBar*>(child) || qobject_cast<QSplitterHandle*>(child)))
            handles += child;
    }
    QWidget* const widget = handles.isEmpty() || dice.oneIn(3) ? someWidget(dice) : dice.oneOf(handles);
    const QPoint from = widget->mapToGlobal(pointIn(dice, widget->rect()));
    planDragTo(dice, from, from + QPoint(dice.below(400) - 200, dice.below(400) - 200));
}

// To another cell, or past the edge.
void InputWalk::planGridDrag(WalkDice& dice)
{
    const QPoint from = someCell(dice);
    const QPoint past(dice.below(800) - 400, dice.below(800) - 400);
    const QPoint to = dice.oneIn(3) ? from + past : someCell(dice);
    planDragTo(dice, from, to);
}

void InputWalk::planDivider(WalkDice& dice)
{
    CGridCtrl_X* const grid = someGrid(dice);
    if (!grid)
        return;
    const bool isColumn = !dice.oneIn(3);
    const int line = dice.below(isColumn ? grid->m_nCols : grid->m_nRows);
    CRect cell;
    if (!(isColumn ? grid->GetCellRect(0, line, &cell) : grid->GetCellRect(line, 0, &cell)))
        return;
    const QPoint end = isColumn ? QPoint(cell.right - 1, cell.top + 3) : QPoint(cell.left + 3, cell.bottom - 1);
    const QPoint place = grid->GetSafeHwnd()->mapToGlobal(end);
    if (dice.oneIn(3))
        planClicks(dice, place);
    else
        planDragTo(dice, place, place + QPoint(dice.below(120) - 60, dice.below(60) - 30));
}

void InputWalk::planWheel(WalkDice& dice)
{
    const unsigned button = 4 + static_cast<unsigned>(dice.below(4));
    planMove(dice.oneIn(2) ? somePlace(dice) : someCell(dice));
    for (int i = dice.below(6); i >= 0; --i) {
        planButton(button, true);
        planButton(button, false);
    }
}

// ---------------------------------------------------------------------------------------------------------- the window

void InputWalk::planSize(WalkDice& dice)
{
    const QSize size(200 + dice.below(1060), 150 + dice.below(840));
    later(QStringLiteral("makes the window %1 x %2").arg(size.width()).arg(size.height()),
          [=] { m_user.resize(m_frame->GetSafeHwnd()->winId(), size); });
}

void InputWalk::planActivation(WalkDice&)
{
    later(QStringLiteral("activates the window"), [this] { m_frame->GetSafeHwnd()->activateWindow(); });
}

void InputWalk::planClosing(WalkDice& dice)
{
    if (dice.oneIn(3))
        planPress(QStringLiteral("Control_L q"));
    else
        later(QStringLiteral("has the window closed"), [this] { m_user.close(window()->window()->winId()); });
}
