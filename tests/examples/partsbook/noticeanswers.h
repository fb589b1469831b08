#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

class CGridCtrl_X;
class CMainFrame;
class WalkDice;

/// Does to the grids of the main window, while a notice of theirs is on its way, what a handler of the notice may do:
/// ends the editing, takes the editor or the focus away, deletes a part, shows another book, closes the window. Only
/// where the user's hand on the grid is the cause: a command that works with a part knows what its own handlers do.
///
/// Each answer is told on the standard output.
class NoticeAnswers : public QObject
{
public:
    NoticeAnswers(unsigned seed, QString folder);

    /// The notices of this window from now on; null for none.
    void watch(CMainFrame* frame);

protected:
    bool eventFilter(QObject* target, QEvent* event) override;

private:
    bool isOfTheUser() const;
    using Answer = void (NoticeAnswers::*)(WalkDice&);
    struct Kind
    {
        int weight;
        const char* what;
        Answer answer;
    };
    static const Kind kinds[];

    void answer();

    void endEditing(WalkDice&);
    void destroyEditor(WalkDice&);
    void takeFocusAway(WalkDice&);
    void clearFocusCell(WalkDice&);
    void deletePart(WalkDice&);
    void deleteAllCells(WalkDice&);
    void showAnotherBook(WalkDice& dice);
    void closeWindow(WalkDice&);

    const unsigned m_seed;
    const QString m_folder;
    unsigned m_notices = 0;
    CMainFrame* m_frame = nullptr;
    QPointer<QObject> m_lastTarget; // of input
    QPointer<QWidget> m_grid;       // the one that has sent the notice
    bool m_isAnswering = false;
    bool m_saysYes = false;
};
