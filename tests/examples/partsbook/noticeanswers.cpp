#include "noticeanswers.h"

#include "mainframe.h"
#include "resource.h"
#include "walkdice.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <XeGridCtrl.h>
#include <xeresource.h>

#include <cstdio>

namespace {

constexpr int noticesToAnAnswer = 10;

CGridCtrl_X* gridOf(QWidget* widget) { return qobject_cast<CGridCtrl_X*>(CWnd_X::FromHandlePermanent(widget)); }

bool isInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::FocusOut:
    case QEvent::ContextMenu:
    case QEvent::Close:
        return true;
    default:
        return false;
    }
}

} // namespace

const NoticeAnswers::Kind NoticeAnswers::kinds[] = {
    {8, "ends the editing", &NoticeAnswers::endEditing},
    {6, "destroys the editor", &NoticeAnswers::destroyEditor},
    {4, "takes the focus away", &NoticeAnswers::takeFocusAway},
    {4, "clears the focus cell", &NoticeAnswers::clearFocusCell},
    {8, "deletes a part", &NoticeAnswers::deletePart},
    {3, "deletes all cells", &NoticeAnswers::deleteAllCells},
    {5, "shows another book", &NoticeAnswers::showAnotherBook},
    {1, "closes the window", &NoticeAnswers::closeWindow},
};

NoticeAnswers::NoticeAnswers(unsigned seed, QString folder) : m_seed(seed), m_folder(std::move(folder))
{
    qApp->installEventFilter(this);
}

void NoticeAnswers::watch(CMainFrame* frame) { m_frame = frame; }

// Ahead of whoever the notice is for.
bool NoticeAnswers::eventFilter(QObject* target, QEvent* event)
{
    if (event->type() == QEvent::Polish && m_saysYes) {
        if (auto* const box = qobject_cast<QMessageBox*>(target))
            QTimer::singleShot(0, box, [box] { box->buttons().constFirst()->click(); });
        return false;
    }
    if (isInput(event->type()))
        m_lastTarget = target;
    if (event->type() != XeWinMsgEvent::EventType || static_cast<XeWinMsgEvent*>(event)->message != WM_NOTIFY)
        return false;
    const auto& message = *static_cast<XeWinMsgEvent*>(event);
    m_grid = reinterpret_cast<const NMHDR*>(message.lParam)->hwndFrom;
    if (m_isAnswering || !m_frame || !m_frame->IsWindowVisible() || !m_frame->IsWindowEnabled() || !isOfTheUser())
        return false;
    const QPointer<QObject> living(target);
    answer();
    return !living;
}

bool NoticeAnswers::isOfTheUser() const
{
    const auto* const target = qobject_cast<QWidget*>(m_lastTarget);
    return gridOf(m_grid) && target && (target == m_grid || m_grid->isAncestorOf(target))
           && !QApplication::activeModalWidget() && !QApplication::activePopupWidget();
}

void NoticeAnswers::answer()
{
    WalkDice dice(~m_seed, ++m_notices);
    if (!dice.oneIn(noticesToAnAnswer))
        return;
    const Kind& kind = dice.kindOf(kinds);
    std::printf("  a notice: %s\n", kind.what);
    std::fflush(stdout);
    m_isAnswering = true;
    (this->*kind.answer)(dice);
    m_isAnswering = false;
}

void NoticeAnswers::endEditing(WalkDice&) { gridOf(m_grid)->EndEditing(); }

void NoticeAnswers::destroyEditor(WalkDice&)
{
    QWidget* const focus = QApplication::focusWidget();
    for (QWidget* editor = focus; editor; editor = editor->parentWidget()) {
        if (editor->parentWidget() == m_grid) {
            DestroyWindow_X(editor);
            return;
        }
    }
}

void NoticeAnswers::takeFocusAway(WalkDice&)
{
    if (QWidget* const focus = QApplication::focusWidget())
        focus->clearFocus();
}

void NoticeAnswers::clearFocusCell(WalkDice&) { gridOf(m_grid)->SetFocusCell(-1, -1); }

// By the command, whose question is answered at once.
void NoticeAnswers::deletePart(WalkDice&)
{
    m_saysYes = true;
    m_frame->GetSafeHwnd()->findChild<QAction*>(ToStringId(ID_PART_DELETE))->trigger();
    m_saysYes = false;
}

// And shows the book again, as a host that knows its grid to be empty.
void NoticeAnswers::deleteAllCells(WalkDice& dice)
{
    gridOf(m_grid)->DeleteNonFixedRows();
    showAnotherBook(dice);
}

void NoticeAnswers::showAnotherBook(WalkDice& dice)
{
    m_frame->OpenBook(m_folder + (dice.oneIn(2) ? QStringLiteral("/parts.csv") : QStringLiteral("/few.csv")));
}

void NoticeAnswers::closeWindow(WalkDice&) { m_frame->GetSafeHwnd()->close(); }
