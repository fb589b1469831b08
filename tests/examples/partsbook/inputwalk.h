#pragma once

#include "xuser.h"

#include <QObject>
#include <QPointer>
#include <QQueue>
#include <QTimer>
#include <QWidget>

#include <functional>

class CGridCtrl_X;
class CMainFrame;
class WalkDice;

/// Random input for the main window of the host program, by the real keyboard and the real pointer: keys, clicks,
/// drags, the wheel, other sizes. One step follows the other from the event loop, also from that of a dialog or a menu.
///
/// Each step is told on the standard output as "number what". The choices are the seed's; where they lead is up to what
/// is on the screen.
class InputWalk : public QObject
{
public:
    /// Files that the file dialogs give, and those that are written, are in the folder.
    InputWalk(unsigned seed, QString folder);

    /// Goes through the window for some hundred steps, closes it, and ends the event loop.
    void begin(CMainFrame& frame);
    /// Lets go of all keys and buttons.
    void end();

    int steps() const { return m_step; }

protected:
    bool eventFilter(QObject* target, QEvent* event) override;

private:
    using Plan = void (InputWalk::*)(WalkDice&);
    struct Kind
    {
        int weight;
        Plan plan;
    };
    struct Action
    {
        QString what;
        std::function<void()> act;
    };
    static const Kind kinds[];

    void step();
    void walkOn(WalkDice& dice);
    void closeWindow();
    void act(const Action& action);
    void later(const QString& what, std::function<void()> act);
    void tell(const QString& what);

    bool answerFileDialog(WalkDice& dice);
    bool leaveWhatTakesLong();

    void planText(WalkDice& dice);
    void planKey(WalkDice& dice);
    void planKeyWithModifier(WalkDice& dice);
    void planShortcut(WalkDice& dice);
    void planClick(WalkDice& dice);
    void planDrag(WalkDice& dice);
    void planGridClick(WalkDice& dice);
    void planGridDrag(WalkDice& dice);
    void planDivider(WalkDice& dice);
    void planWheel(WalkDice& dice);
    void planSize(WalkDice& dice);
    void planActivation(WalkDice& dice);
    void planClosing(WalkDice& dice);

    void planPress(const QString& keys);
    void planModifier(const char* key, bool down);
    void planMove(QPoint place);
    void planButton(unsigned button, bool down);
    void planClicks(WalkDice& dice, QPoint place);
    void planDragTo(WalkDice& dice, QPoint from, QPoint to);

    QWidget* window() const;
    QWidget* someWidget(WalkDice& dice) const;
    QPoint somePlace(WalkDice& dice) const;
    CGridCtrl_X* someGrid(WalkDice& dice) const;
    QPoint someCell(WalkDice& dice) const;

    XUser m_user;
    QTimer m_timer;
    QQueue<Action> m_actions;
    const unsigned m_seed;
    const QString m_folder;
    CMainFrame* m_frame = nullptr;
    int m_step = 0;
    int m_lastStep = 0;            // then the window is closed
    QPointer<QWidget> m_lingering; // the dialog or menu of the last step
    int m_stepsInside = 0;         // of it
};
