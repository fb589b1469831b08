#include "core/connections.h"
#include "leavenothing.h"
#include "testclass.h"

#include <xeafx.h>

namespace {

QStringList calls; // who was called, in order

} // namespace

class Announcer : public QObject
{
    Q_OBJECT

Q_SIGNALS:
    void changed(int value);
    void named(const QString& name);
    void toggled(bool on = false);
    void done();
};

/// What generated form code makes: an object with slots that signals are connected to by name.
class Form : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void onChanged(int value) { calls += QStringLiteral("form.onChanged %1").arg(value); }
    void onNamed(const QString& name) { calls += QStringLiteral("form.onNamed %1").arg(name); }
    void onDone() { calls += QStringLiteral("form.onDone"); }
    void onOther() { calls += QStringLiteral("form.onOther"); }
    void onTooMuch(int value) { calls += QStringLiteral("form.onTooMuch %1").arg(value); }
    void onlyForm() { calls += QStringLiteral("form.onlyForm"); }

public:
    void member(int value) { calls += QStringLiteral("form.member %1").arg(value); }
};

class FormWrapper : public CObject_X
{
    Q_OBJECT

public Q_SLOTS:
    void onChanged(int value) { calls += QStringLiteral("wrapper.onChanged %1").arg(value); }
    void onNamed(const QString& name) { calls += QStringLiteral("wrapper.onNamed %1").arg(name); }
    void onDone() { calls += QStringLiteral("wrapper.onDone"); }
    void onOther() { calls += QStringLiteral("wrapper.onOther"); }
    void onTooMuch(const QString&) { calls += QStringLiteral("wrapper.onTooMuch"); }
};

/// A later class of the host: its slots count too.
class DerivedFormWrapper : public FormWrapper
{
    Q_OBJECT
};

class tst_Connections : public QObject
{
    Q_OBJECT

private slots:
    void init() { calls.clear(); }
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void anObjectWithoutConnections();
    void whatAConnectionSays_data();
    void whatAConnectionSays();
    void theNewestComesFirst();
    void functorsAreLeftOut();
    void disconnectedOnesAreGone();
    void aDeadSenderIsGone();
    void aDisconnectionInsideASignal();
    void manySendersAndSignals();
    void isConnectedLooksAtAllFour();

    void slotsMoveByName();
    void keptConnectionsStay();
    void movingAgainChangesNothing();
    void anExistingConnectionLeavesTheOldOne();
    void doubleConnectionsBecomeOne();
    void slotsThatStay_data();
    void slotsThatStay();
    void functorsAndMembersStay();
    void theOrderIsTurnedRound();
    void theTypeIsKeptAndMadeUnique_data();
    void theTypeIsKeptAndMadeUnique();
    void severalSenders();
    void aSignalOfTheFormItself();
    void inheritedSlotsCount();
    void aSignalWithADefaultArgument();
    void nothingToMove();

private:
    static QString describe(const QObject& receiver);
};

// Such as "changed(int)>onChanged(int):0", newest first.
QString tst_Connections::describe(const QObject& receiver)
{
    QStringList words;
    for (const xe::IncomingConnection& c : xe::incomingConnections(&receiver)) {
        words +=
            QStringLiteral("%1>%2:%3")
                .arg(QString::fromLatin1(c.signal.methodSignature()), QString::fromLatin1(c.method.methodSignature()))
                .arg(int(c.type));
    }
    return words.join(QLatin1Char(' '));
}

// ------------------------------------------------------------------------------------------------------ the walk

void tst_Connections::anObjectWithoutConnections()
{
    Form form;
    QCOMPARE(describe(form), QString());

    // One that only sends has connection data, but nothing ends at it.
    Form receiver;
    QVERIFY(connect(&form, SIGNAL(objectNameChanged(QString)), &receiver, SLOT(onNamed(QString))));
    QCOMPARE(describe(form), QString());
    QCOMPARE(describe(receiver), QStringLiteral("objectNameChanged(QString)>onNamed(QString):0"));
}

void tst_Connections::whatAConnectionSays_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("auto") << int(Qt::AutoConnection);
    QTest::newRow("direct") << int(Qt::DirectConnection);
    QTest::newRow("queued") << int(Qt::QueuedConnection);
    QTest::newRow("blocking queued") << int(Qt::BlockingQueuedConnection);
}

void tst_Connections::whatAConnectionSays()
{
    QFETCH(int, type);

    Announcer sender;
    Form form;
    QVERIFY(connect(&sender, SIGNAL(changed(int)), &form, SLOT(onChanged(int)), Qt::ConnectionType(type)));

    const QVector<xe::IncomingConnection> found = xe::incomingConnections(&form);
    QCOMPARE(found.size(), 1);
    QCOMPARE(found[0].sender, &sender);
    QCOMPARE(found[0].signal, QMetaMethod::fromSignal(&Announcer::changed));
    QCOMPARE(found[0].method, form.metaObject()->method(form.metaObject()->indexOfSlot("onChanged(int)")));
    QCOMPARE(int(found[0].type), type);
}

void tst_Connections::theNewestComesFirst()
{
    Announcer sender;
    Form form;
    QVERIFY(connect(&sender, SIGNAL(changed(int)), &form, SLOT(onDone())));
    QVERIFY(connect(&sender, SIGNAL(done()), &form, SLOT(onOther())));
    QVERIFY(connect(&sender, SIGNAL(changed(int)), &form, SLOT(onChanged(int))));
    QCOMPARE(describe(form),
             QStringLiteral("changed(int)>onChanged(int):0 done()>onOther():0 changed(int)>onDone():0"));
}

void tst_Connections::functorsAreLeftOut()
{
    Announcer sender;
    Form form;
    connect(&sender, &Announcer::done, &form, [] { calls += QStringLiteral("functor"); });
    connect(&sender, &Announcer::changed, &form, &Form::member);
    connect(&sender, &Announcer::changed, &form, &Form::onChanged);
    QCOMPARE(describe(form), QString());
    connect(&sender, SIGNAL(done()), &form, SLOT(onDone()));
    QCOMPARE(describe(form), QStringLiteral("done()>onDone():0"));
}

void tst_Connections::disconnectedOnesAreGone()
{
    Announcer sender;
    Form form;
    for (const char* slot : {SLOT(onDone()), SLOT(onOther()), SLOT(onlyForm())})
        QVERIFY(connect(&sender, SIGNAL(done()), &form, slot));
    QVERIFY(disconnect(&sender, SIGNAL(done()), &form, SLOT(onOther())));
    QCOMPARE(describe(form), QStringLiteral("done()>onlyForm():0 done()>onDone():0"));
    QVERIFY(disconnect(&sender, nullptr, &form, nullptr));
    QCOMPARE(describe(form), QString());
}

void tst_Connections::aDeadSenderIsGone()
{
    Announcer sender;
    Form form;
    {
        Announcer shortLived;
        QVERIFY(connect(&shortLived, SIGNAL(done()), &form, SLOT(onOther())));
        QVERIFY(connect(&sender, SIGNAL(done()), &form, SLOT(onDone())));
    }
    QCOMPARE(describe(form), QStringLiteral("done()>onDone():0"));
}

// Qt keeps a connection that goes while its signal is on the way in a list of its own for a while.
void tst_Connections::aDisconnectionInsideASignal()
{
    Announcer sender;
    Form form;
    QString seen;
    QVERIFY(connect(&sender, SIGNAL(done()), &form, SLOT(onOther())));
    connect(&sender, &Announcer::done, this, [&] {
        disconnect(&sender, SIGNAL(done()), &form, SLOT(onDone()));
        seen = describe(form);
    });
    QVERIFY(connect(&sender, SIGNAL(done()), &form, SLOT(onDone())));
    emit sender.done();
    QCOMPARE(seen, QStringLiteral("done()>onOther():0"));
    QCOMPARE(calls, QStringList{"form.onOther"});
    QCOMPARE(describe(form), QStringLiteral("done()>onOther():0"));
}

void tst_Connections::manySendersAndSignals()
{
    Form form;
    std::vector<std::unique_ptr<Announcer>> senders;
    for (int i = 0; i < 100; ++i) {
        senders.push_back(std::make_unique<Announcer>());
        connect(senders.back().get(), SIGNAL(changed(int)), &form, SLOT(onChanged(int)));
        connect(senders.back().get(), SIGNAL(done()), &form, SLOT(onDone()));
    }
    const QVector<xe::IncomingConnection> found = xe::incomingConnections(&form);
    QCOMPARE(found.size(), 200);
    for (int i = 0; i < found.size(); ++i) {
        const bool isDone = i % 2 == 0; // newest first
        QCOMPARE(found[i].sender, senders[size_t(99 - i / 2)].get());
        QCOMPARE(found[i].signal.name(), isDone ? QByteArray("done") : QByteArray("changed"));
        QCOMPARE(found[i].method.name(), isDone ? QByteArray("onDone") : QByteArray("onChanged"));
    }
}

void tst_Connections::isConnectedLooksAtAllFour()
{
    Announcer sender;
    Announcer otherSender;
    Form form;
    Form otherForm;
    QVERIFY(connect(&sender, SIGNAL(changed(int)), &form, SLOT(onChanged(int))));
    const QMetaMethod changed = QMetaMethod::fromSignal(&Announcer::changed);
    const QMetaMethod done = QMetaMethod::fromSignal(&Announcer::done);
    const QMetaMethod onChanged = form.metaObject()->method(form.metaObject()->indexOfSlot("onChanged(int)"));
    const QMetaMethod onDone = form.metaObject()->method(form.metaObject()->indexOfSlot("onDone()"));

    QVERIFY(xe::isConnected(&sender, changed, &form, onChanged));
    QVERIFY(!xe::isConnected(&otherSender, changed, &form, onChanged));
    QVERIFY(!xe::isConnected(&sender, done, &form, onChanged));
    QVERIFY(!xe::isConnected(&sender, changed, &otherForm, onChanged));
    QVERIFY(!xe::isConnected(&sender, changed, &form, onDone));
}

// ---------------------------------------------------------------------------------------- moving slots to a wrapper

void tst_Connections::slotsMoveByName()
{
    Announcer sender;
    Form form;
    FormWrapper wrapper;
    QVERIFY(connect(&sender, SIGNAL(changed(int)), &form, SLOT(onChanged(int))));
    QVERIFY(connect(&sender, SIGNAL(named(QString)), &form, SLOT(onNamed(QString))));
    wrapper.ConnectSlotsFrom(&form, false);
    emit sender.changed(7);
    emit sender.named(QStringLiteral("x"));
    QCOMPARE(calls, (QStringList{"wrapper.onChanged 7", "wrapper.onNamed x"}));
    QCOMPARE(describe(form), QString());
}

void tst_Connections::keptConnectionsStay()
{
    Announcer sender;
    Form form;
    FormWrapper wrapper;
    QVERIFY(connect(&sender, SIGNAL(changed(int)), &form, SLOT(onChanged(int))));
    wrapper.ConnectSlotsFrom(&form, true);
    emit sender.changed(7);
    QCOMPARE(calls, (QStringList{"form.onChanged 7", "wrapper.onChanged 7"}));
}

void tst_Connections::movingAgainChangesNothing()
{
    Announcer sender;
    Form form;
    FormWrapper wrapper;
    QVERIFY(connect(&sender, SIGNAL(changed(int)), &form, SLOT(onChanged(int))));
    wrapper.ConnectSlotsFrom(&form, true);
    wrapper.ConnectSlotsFrom(&form, true);
    emit sender.changed(7);
    QCOMPARE(calls, (QStringList{"form.onChanged 7", "wrapper.onChanged 7"}));
}

void tst_Connections::anExistingConnectionLeavesTheOldOne()
{
    Announcer sender;
    Form form;
    FormWrapper wrapper;
    QVERIFY(connect(&sender, SIGNAL(changed(int)), &form, SLOT(onChanged(int))));
    QVERIFY(connect(&sender, SIGNAL(changed(int)), &wrapper, SLOT(onChanged(int))));
    // The new connection would be a second one, so it is not made, and the old one is not taken away.
    wrapper.ConnectSlotsFrom(&form, false);
    emit sender.changed(7);
    QCOMPARE(calls, (QStringList{"form.onChanged 7", "wrapper.onChanged 7"}));
}

void tst_Connections::doubleConnectionsBecomeOne()
{
    Announcer sender;
    Form form;
    FormWrapper wrapper;
    QVERIFY(connect(&sender, SIGNAL(done()), &form, SLOT(onDone())));
    QVERIFY(connect(&sender, SIGNAL(done()), &form, SLOT(onDone())));
    wrapper.ConnectSlotsFrom(&form, false);
    emit sender.done();
    QCOMPARE(calls, QStringList{"wrapper.onDone"});
}

void tst_Connections::slotsThatStay_data()
{
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QStringList>("called");

    QTest::newRow("the wrapper has no slot of the name")
        << QByteArray(SIGNAL(changed(int))) << QByteArray(SLOT(onlyForm())) << QStringList{"form.onlyForm"};
    QTest::newRow("the wrapper's slot takes other arguments")
        << QByteArray(SIGNAL(changed(int))) << QByteArray(SLOT(onTooMuch(int))) << QStringList{"form.onTooMuch 7"};
}

void tst_Connections::slotsThatStay()
{
    QFETCH(QByteArray, signal);
    QFETCH(QByteArray, slot);
    QFETCH(QStringList, called);

    Announcer sender;
    Form form;
    FormWrapper wrapper;
    QVERIFY(connect(&sender, signal, &form, slot));
    for (const bool keep : {false, true}) {
        calls.clear();
        wrapper.ConnectSlotsFrom(&form, keep);
        emit sender.changed(7);
        QCOMPARE(calls, called);
    }
}

void tst_Connections::functorsAndMembersStay()
{
    Announcer sender;
    Form form;
    FormWrapper wrapper;
    connect(&sender, &Announcer::changed, &form, [](int) { calls += QStringLiteral("functor"); });
    connect(&sender, &Announcer::changed, &form, &Form::onChanged);
    connect(&sender, SIGNAL(changed(int)), &form, SLOT(onDone()));
    wrapper.ConnectSlotsFrom(&form, false);
    emit sender.changed(7);
    QCOMPARE(calls, (QStringList{"functor", "form.onChanged 7", "wrapper.onDone"}));
}

void tst_Connections::theOrderIsTurnedRound()
{
    Announcer sender;
    Form form;
    FormWrapper wrapper;
    for (const char* slot : {SLOT(onDone()), SLOT(onOther())})
        QVERIFY(connect(&sender, SIGNAL(done()), &form, slot));
    emit sender.done();
    QCOMPARE(calls, (QStringList{"form.onDone", "form.onOther"}));

    calls.clear();
    wrapper.ConnectSlotsFrom(&form, false);
    emit sender.done();
    QCOMPARE(calls, (QStringList{"wrapper.onOther", "wrapper.onDone"}));
}

void tst_Connections::theTypeIsKeptAndMadeUnique_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("typeAfter");
    // Qt itself takes the unique bit off once the connection is made.
    QTest::newRow("auto") << int(Qt::AutoConnection) << int(Qt::AutoConnection);
    QTest::newRow("direct") << int(Qt::DirectConnection) << int(Qt::DirectConnection);
    QTest::newRow("queued") << int(Qt::QueuedConnection) << int(Qt::QueuedConnection);
    QTest::newRow("unique") << int(Qt::UniqueConnection) << int(Qt::AutoConnection);
    QTest::newRow("queued and unique") << int(Qt::QueuedConnection | Qt::UniqueConnection) << int(Qt::QueuedConnection);
}

void tst_Connections::theTypeIsKeptAndMadeUnique()
{
    QFETCH(int, type);
    QFETCH(int, typeAfter);

    Announcer sender;
    Form form;
    FormWrapper wrapper;
    QVERIFY(connect(&sender, SIGNAL(changed(int)), &form, SLOT(onChanged(int)), Qt::ConnectionType(type)));
    wrapper.ConnectSlotsFrom(&form, true);
    wrapper.ConnectSlotsFrom(&form, true);
    QCOMPARE(describe(wrapper), QStringLiteral("changed(int)>onChanged(int):%1").arg(typeAfter));

    emit sender.changed(7);
    QCOMPARE(calls.size(), typeAfter == Qt::QueuedConnection ? 0 : 2);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    QCOMPARE(calls, (QStringList{"form.onChanged 7", "wrapper.onChanged 7"}));
}

void tst_Connections::severalSenders()
{
    Announcer one;
    Announcer other;
    Form form;
    FormWrapper wrapper;
    QVERIFY(connect(&one, SIGNAL(changed(int)), &form, SLOT(onChanged(int))));
    QVERIFY(connect(&other, SIGNAL(changed(int)), &form, SLOT(onChanged(int))));
    wrapper.ConnectSlotsFrom(&form, false);
    emit one.changed(1);
    emit other.changed(2);
    QCOMPARE(calls, (QStringList{"wrapper.onChanged 1", "wrapper.onChanged 2"}));
}

void tst_Connections::aSignalOfTheFormItself()
{
    Form form;
    FormWrapper wrapper;
    QVERIFY(connect(&form, SIGNAL(objectNameChanged(QString)), &form, SLOT(onNamed(QString))));
    wrapper.ConnectSlotsFrom(&form, false);
    form.setObjectName(QStringLiteral("x"));
    QCOMPARE(calls, QStringList{"wrapper.onNamed x"});
}

void tst_Connections::inheritedSlotsCount()
{
    Announcer sender;
    Form form;
    DerivedFormWrapper wrapper;
    QVERIFY(connect(&sender, SIGNAL(done()), &form, SLOT(onDone())));
    wrapper.ConnectSlotsFrom(&form, false);
    emit sender.done();
    QCOMPARE(calls, QStringList{"wrapper.onDone"});
}

void tst_Connections::aSignalWithADefaultArgument()
{
    Announcer sender;
    Form form;
    FormWrapper wrapper;
    QVERIFY(connect(&sender, SIGNAL(toggled()), &form, SLOT(onDone())));
    wrapper.ConnectSlotsFrom(&form, false);
    emit sender.toggled(true);
    QCOMPARE(calls, QStringList{"wrapper.onDone"});
}

void tst_Connections::nothingToMove()
{
    Form form;
    FormWrapper wrapper;
    wrapper.ConnectSlotsFrom(nullptr, false);
    wrapper.ConnectSlotsFrom(&form, false);
    QCOMPARE(describe(wrapper), QString());
}

XE_TEST(tst_Connections)
#include "tst_connections.moc"
