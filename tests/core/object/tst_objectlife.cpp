// The life of a wrapper and of its imp object, step for step.

#include "leavenothing.h"
#include "testclass.h"

#include <xeafx.h>

#include <QPointer>

namespace {

QStringList journal; // what the objects of this file report about themselves

} // namespace

class ReportingImp : public QObject
{
    Q_OBJECT

public:
    explicit ReportingImp(const char* name, QObject* parent = nullptr) : QObject(parent)
    {
        setObjectName(QLatin1String(name));
    }
    ~ReportingImp() override { journal += QStringLiteral("~") + objectName(); }
};

class ReportingWrapper : public CObject_X
{
    Q_OBJECT

public:
    ~ReportingWrapper() override { journal += QStringLiteral("~wrapper"); }

    bool OnAttach() override
    {
        journal += QStringLiteral("OnAttach");
        return !refuses;
    }
    void OnDetach() override
    {
        journal += QStringLiteral("OnDetach");
        impSeenByOnDetach = GetImpQObject();
    }
    bool eventFilter(QObject* target, QEvent* event) override
    {
        if (event->type() == QEvent::User)
            journal += QStringLiteral("event of ") + target->objectName();
        return false;
    }

    bool refuses = false;
    QObject* impSeenByOnDetach = nullptr;
};

/// A wrapper and two imp objects whose life is told by short texts.
class Pair
{
public:
    ~Pair()
    {
        delete wrapper;
        delete imp1;
        delete imp2;
        delete home;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// Does the steps, which are separated by blanks, and gives what happened and came out of it, step for step.
    QString run(const QString& steps)
    {
        const QStringList list = steps.split(QLatin1Char(' '));
        QStringList results;
        for (const QString& step : list) {
            journal.clear();
            const QString outcome = perform(step);
            if (!outcome.isEmpty())
                journal += outcome;
            results += journal.join(QLatin1Char(' '));
        }
        return results.join(QStringLiteral(" | "));
    }

    QPointer<QObject> home = new QObject;
    QPointer<ReportingImp> imp1 = new ReportingImp("imp1", home);
    QPointer<ReportingImp> imp2 = new ReportingImp("imp2");
    QPointer<ReportingWrapper> wrapper = new ReportingWrapper;

private:
    QString perform(const QString& step)
    {
        const bool external = step.startsWith(QLatin1String("adopt"));
        if (external || step.startsWith(QLatin1String("own")))
            return wrapper->Attach(impNamed(step.right(1)), home, external) ? QStringLiteral("true")
                                                                            : QStringLiteral("false");
        if (step == QLatin1String("refuse"))
            wrapper->refuses = true;
        else if (step == QLatin1String("detach"))
            wrapper->Detach();
        else if (step == QLatin1String("loop"))
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        else if (step == QLatin1String("-wrapper"))
            delete wrapper;
        else if (step == QLatin1String("-home"))
            delete home;
        else if (step.startsWith(QLatin1String("-imp")))
            delete impNamed(step.right(1));
        else if (step.startsWith(QLatin1String("event")))
            send(impNamed(step.right(1)));
        else if (step == QLatin1String("state"))
            return state();
        else
            return QStringLiteral("unknown step ") + step;
        return QString();
    }

    ReportingImp* impNamed(const QString& number) const
    {
        return number == QLatin1String("1") ? imp1 : number == QLatin1String("2") ? imp2 : nullptr;
    }

    static void send(QObject* target)
    {
        QEvent event(QEvent::User);
        QCoreApplication::sendEvent(target, &event);
    }

    const char* relation(const QObject* imp) const
    {
        if (!wrapper || wrapper->GetImpQObject() != imp)
            return "free";
        return wrapper->IsExternalImpObj() ? "adopted" : "owned";
    }

    // Such as "[imp1=owned+owner+parent imp2=free]": the properties stand behind the relation.
    QString state() const
    {
        QStringList words;
        for (const ReportingImp* imp : {imp1.data(), imp2.data()}) {
            if (!imp)
                continue;
            QString word = imp->objectName() + QLatin1Char('=') + QLatin1String(relation(imp));
            for (const QByteArray& name : imp->dynamicPropertyNames())
                word += QLatin1Char('+') + QString::fromLatin1(name);
            words += word;
        }
        if (wrapper && !wrapper->GetImpQObject())
            words += wrapper->IsExternalImpObj() ? QStringLiteral("empty,external") : QStringLiteral("empty");
        return QLatin1Char('[') + words.join(QLatin1Char(' ')) + QLatin1Char(']');
    }
};

class tst_ObjectLife : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void life_data();
    void life();
    void onDetachSeesNoImpObject();
};

void tst_ObjectLife::life_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("result");

    const auto row = [](const char* name, const char* steps, const char* result) {
        QTest::newRow(name) << QString::fromLatin1(steps) << QString::fromLatin1(result);
    };
    row("a null imp object is refused", "own0 adopt0 state", "false | false | [imp1=free imp2=free empty]");
    row("a null imp object leaves the one before", "adopt1 own0 adopt0 state",
        "OnAttach true | false | false | [imp1=adopted+owner+parent imp2=free]");
    row("an owned imp object", "own1 state", "OnAttach true | [imp1=owned+owner+parent imp2=free]");
    row("an adopted imp object", "adopt1 state", "OnAttach true | [imp1=adopted+owner+parent imp2=free]");

    row("the wrapper of an owned imp object dies first", "own2 -wrapper state loop state",
        "OnAttach true | ~wrapper | [imp1=free imp2=free] | ~imp2 | [imp1=free]");
    row("the wrapper of an adopted imp object dies first", "adopt2 -wrapper loop state",
        "OnAttach true | ~wrapper |  | [imp1=free imp2=free]");
    row("an owned imp object dies first", "own2 -imp2 state -wrapper loop",
        "OnAttach true | ~imp2 | [imp1=free empty] | ~wrapper | ");
    row("an adopted imp object dies first", "adopt2 -imp2 state -wrapper loop",
        "OnAttach true | ~imp2 | [imp1=free empty] | ~wrapper | ");
    row("the Qt parent of an owned imp object dies", "own1 -home state -wrapper",
        "OnAttach true | ~imp1 | [imp2=free empty] | ~wrapper");
    row("the Qt parent of an adopted imp object dies", "adopt1 -home state -wrapper",
        "OnAttach true | ~imp1 | [imp2=free empty] | ~wrapper");
    row("an imp object owned by a dead wrapper dies with its Qt parent before the loop", "own1 -wrapper -home loop",
        "OnAttach true | ~wrapper | ~imp1 | ");
    row("an empty wrapper dies", "-wrapper state", "~wrapper | [imp1=free imp2=free]");

    row("detaching an owned imp object", "own2 detach state loop state",
        "OnAttach true | OnDetach | [imp1=free imp2=free empty] | ~imp2 | [imp1=free empty]");
    row("detaching an adopted imp object", "adopt2 detach state loop state",
        "OnAttach true | OnDetach | [imp1=free imp2=free empty] |  | [imp1=free imp2=free empty]");
    row("detaching twice", "adopt1 detach detach", "OnAttach true | OnDetach | ");
    row("detaching an empty wrapper", "detach", "");
    row("detaching after the imp object has died", "own1 -imp1 detach", "OnAttach true | ~imp1 | ");
    row("a detached imp object dies unnoticed", "adopt1 detach own2 -imp1 state",
        "OnAttach true | OnDetach | OnAttach true | ~imp1 | [imp2=owned+owner+parent]");
    row("a detached wrapper takes another imp object", "adopt1 detach own2 state",
        "OnAttach true | OnDetach | OnAttach true | [imp1=free imp2=owned+owner+parent]");
    row("an orphaned wrapper takes another imp object", "adopt1 -imp1 own2 state",
        "OnAttach true | ~imp1 | OnAttach true | [imp2=owned+owner+parent]");

    row("a second imp object releases the owned one", "own1 adopt2 state loop state",
        "OnAttach true | OnDetach OnAttach true | [imp1=free imp2=adopted+owner+parent] | ~imp1 | "
        "[imp2=adopted+owner+parent]");
    row("a second imp object leaves the adopted one alive", "adopt1 own2 loop state",
        "OnAttach true | OnDetach OnAttach true |  | [imp1=free imp2=owned+owner+parent]");
    row("adopting the same imp object again", "adopt1 adopt1 loop state event1",
        "OnAttach true | OnDetach OnAttach true |  | [imp1=adopted+owner+parent imp2=free] | event of imp1");
    row("owning the same imp object again releases it", "own2 own2 loop state",
        "OnAttach true | OnDetach OnAttach true | ~imp2 | [imp1=free empty]");
    row("an owned imp object cannot be adopted alive", "own2 adopt2 loop state",
        "OnAttach true | OnDetach OnAttach true | ~imp2 | [imp1=free empty]");

    row("a refusing wrapper releases the owned imp object", "refuse own2 state loop state",
        " | OnAttach OnDetach false | [imp1=free imp2=free empty] | ~imp2 | [imp1=free empty]");
    row("a refusing wrapper leaves the adopted imp object alive", "refuse adopt2 loop state event2",
        " | OnAttach OnDetach false |  | [imp1=free imp2=free empty] | ");
    row("a refused attachment has let go of the imp object before", "adopt1 refuse adopt2 state",
        "OnAttach true |  | OnDetach OnAttach OnDetach false | [imp1=free imp2=free empty]");

    row("events pass the wrapper while it is attached", "event1 adopt1 event1 event2 detach event1",
        " | OnAttach true | event of imp1 |  | OnDetach | ");
    row("events of a released imp object pass no wrapper", "adopt1 own2 event1 event2",
        "OnAttach true | OnDetach OnAttach true |  | event of imp2");
    row("events of a survivor pass no wrapper", "own1 -wrapper event1", "OnAttach true | ~wrapper | ");
}

void tst_ObjectLife::life()
{
    QFETCH(QString, steps);
    QFETCH(QString, result);

    Pair pair;
    QCOMPARE(pair.run(steps), result);
}

void tst_ObjectLife::onDetachSeesNoImpObject()
{
    QObject imp;
    ReportingWrapper wrapper;
    QVERIFY(wrapper.Attach(&imp, nullptr, true));
    wrapper.impSeenByOnDetach = &imp;
    wrapper.Detach();
    QCOMPARE(wrapper.impSeenByOnDetach, nullptr);
}

XE_TEST(tst_ObjectLife)
#include "tst_objectlife.moc"
