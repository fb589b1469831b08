// What a grid asks the X server for while the pointer moves over it: each question is a round trip, for which the
// program waits.

#include "realgrid.h"
#include "realinputtest.h"
#include "testclass.h"

#include <QMouseEvent>

#include <dlfcn.h>

namespace {

int answers = 0; // that the program has waited for

// Sees the moves that come to a widget.
class Moves : public QObject
{
public:
    explicit Moves(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::MouseMove)
            last = static_cast<QMouseEvent*>(event)->pos();
        return false;
    }

    QPoint last;
};

} // namespace

// Stands in for the function of xcb by which all of a program waits for an answer of the server.
extern "C" Q_DECL_EXPORT void* xcb_wait_for_reply(void* connection, unsigned request, void** error)
{
    using Function = void* (*)(void*, unsigned, void**);
    static const auto wait = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "xcb_wait_for_reply"));
    ++answers;
    return wait(connection, request, error);
}

class tst_GridQuestions : public RealInputTest
{
    Q_OBJECT

private Q_SLOTS:
    void theCountSeesAQuestion();
    void oneForAMove();
    void oneForAMoveOverAHeading();

private:
    void moveOver(RealGrid& host, const QVector<QPoint>& places);
};

void tst_GridQuestions::theCountSeesAQuestion()
{
    QCursor::pos();
    answers = 0;
    QCursor::pos();
    QCOMPARE(answers, 1);
}

// The server has each move before the count begins, and the program nothing but that one to do.
void tst_GridQuestions::moveOver(RealGrid& host, const QVector<QPoint>& places)
{
    const Moves moves(*host.widget);
    for (const QPoint place : places) {
        m_input.movePointer(host.widget->mapToGlobal(place));
        answers = 0;
        const auto hasCome = [&] {
            QCoreApplication::processEvents();
            return moves.last == place;
        };
        QTRY_VERIFY(hasCome());
        QCoreApplication::processEvents(); // what the move has posted
        QVERIFY2(answers <= 1, qPrintable(QString::number(answers)));
    }
}

void tst_GridQuestions::oneForAMove()
{
    RealGrid host(m_input);
    QVERIFY(host.isReady());
    host.moveTo(host.middleOf(1, 1));
    moveOver(host, {host.middleOf(1, 2), host.middleOf(2, 2), host.middleOf(5, 4), host.middleOf(5, 4) + QPoint(1, 0)});
}

void tst_GridQuestions::oneForAMoveOverAHeading()
{
    RealGrid host(m_input);
    QVERIFY(host.isReady());
    host.moveTo(host.middleOf(1, 1));
    moveOver(host, {host.middleOf(0, 1), host.middleOf(0, 2), QPoint(99, 10), host.middleOf(3, 0)});
}

XE_TEST(tst_GridQuestions)

#include "tst_gridquestions.moc"
