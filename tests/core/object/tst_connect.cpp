#include "leavenothing.h"
#include "testclass.h"

#include <xeafx.h>

#include <QLineEdit>

class SlotOwner : public CObject_X
{
    Q_OBJECT

public:
    QStringList calls;

public Q_SLOTS:
    void first(const QString& name) { calls += QStringLiteral("first ") + name; }
    void second(const QString& name) { calls += QStringLiteral("second ") + name; }
    void named(int) { calls += QStringLiteral("named int"); }
    void named(const QString&) { calls += QStringLiteral("named text"); }

public:
    Q_INVOKABLE void callable() {}

Q_SIGNALS:
    void announced();
};

class DerivedSlotOwner : public SlotOwner
{
    Q_OBJECT

public Q_SLOTS:
    void onlyDerived() {}
    void first(const QString& name) { calls += QStringLiteral("derived first ") + name; }
};

class tst_Connect : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void findSlot_data();
    void findSlot();
    void findSlotLeavesTheLastMethod();

    void connectReplaces_data();
    void connectReplaces();
    void connectTouchesNoOtherPair();
    void connectKeepsTheType();
    void connectIsUniqueUnlessSaidOtherwise();
    void connectWithNull();
    void connectById_data();
    void connectById();
    void connectByIdReplaces();
    void connectByIdTakesTheFirstOfTheName();
    void connectByIdNeedsARoot();
    void anEmptyNameIsNoName();
};

void tst_Connect::findSlot_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("signature");

    QTest::newRow("own slot") << "onlyDerived" << QByteArray("onlyDerived()");
    QTest::newRow("slot of the base") << "second" << QByteArray("second(QString)");
    QTest::newRow("slot of the wrapper base") << "OnImpDestroy" << QByteArray("OnImpDestroy()");
    QTest::newRow("slot of QObject") << "deleteLater" << QByteArray("deleteLater()");
    QTest::newRow("the first of two overloads") << "named" << QByteArray("named(int)");
    QTest::newRow("a signal is no slot") << "announced" << QByteArray();
    QTest::newRow("a callable method is no slot") << "callable" << QByteArray();
    QTest::newRow("letter case counts") << "onlyderived" << QByteArray();
    QTest::newRow("a part of a name is no match") << "onlyDeriv" << QByteArray();
    QTest::newRow("parameters are no part of the name") << "second(QString)" << QByteArray();
    QTest::newRow("unknown name") << "nowhere" << QByteArray();
    QTest::newRow("empty name") << "" << QByteArray();
    QTest::newRow("null name") << QString() << QByteArray();
}

void tst_Connect::findSlot()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, signature);

    const DerivedSlotOwner owner;
    QMetaMethod method;
    QCOMPARE(owner.FindSlotMethod(name, method), !signature.isEmpty());
    if (!signature.isEmpty())
        QCOMPARE(method.methodSignature(), signature);
}

void tst_Connect::findSlotLeavesTheLastMethod()
{
    const DerivedSlotOwner owner;
    QMetaMethod method;
    QVERIFY(!owner.FindSlotMethod(QStringLiteral("nowhere"), method));
    QCOMPARE(method, owner.metaObject()->method(owner.metaObject()->methodCount() - 1));

    // A slot overridden in the derived class: the base's entry comes first.
    QVERIFY(owner.FindSlotMethod(QStringLiteral("first"), method));
    QCOMPARE(method.enclosingMetaObject(), &SlotOwner::staticMetaObject);
}

// ----------------------------------------------------------------------------------------------------- connect

void tst_Connect::connectReplaces_data()
{
    QTest::addColumn<QList<QByteArray>>("connects");
    QTest::addColumn<QStringList>("calls");

    const QByteArray first = SLOT(first(QString));
    const QByteArray second = SLOT(second(QString));
    QTest::newRow("one connection") << QList<QByteArray>{first} << QStringList{"first x"};
    QTest::newRow("the same slot again") << QList<QByteArray>{first, first} << QStringList{"first x"};
    QTest::newRow("another slot") << QList<QByteArray>{first, second} << QStringList{"second x"};
    QTest::newRow("another slot and back") << QList<QByteArray>{first, second, first} << QStringList{"first x"};
}

void tst_Connect::connectReplaces()
{
    QFETCH(QList<QByteArray>, connects);
    QFETCH(QStringList, calls);

    QObject sender;
    SlotOwner receiver;
    for (const QByteArray& slot : connects) {
        QVERIFY(CObject_X::Connect(&sender, SIGNAL(objectNameChanged(QString)), &receiver, slot, nullptr,
                                   Qt::UniqueConnection));
    }
    sender.setObjectName(QStringLiteral("x"));
    QCOMPARE(receiver.calls, calls);
}

void tst_Connect::connectTouchesNoOtherPair()
{
    QObject sender;
    QObject otherSender;
    SlotOwner receiver;
    SlotOwner otherReceiver;
    const auto connectFirst = [](const QObject& from, const QObject& to) {
        return CObject_X::Connect(&from, SIGNAL(objectNameChanged(QString)), &to, SLOT(first(QString)), nullptr,
                                  Qt::AutoConnection);
    };
    QVERIFY(connectFirst(sender, receiver));
    QVERIFY(connectFirst(sender, otherReceiver));
    QVERIFY(connectFirst(otherSender, receiver));
    QVERIFY(CObject_X::Connect(&otherReceiver, SIGNAL(announced()), &receiver, SLOT(deleteLater()), nullptr,
                               Qt::AutoConnection));

    // Replaced: sender to receiver alone.
    QVERIFY(CObject_X::Connect(&sender, SIGNAL(objectNameChanged(QString)), &receiver, SLOT(second(QString)), nullptr,
                               Qt::AutoConnection));
    sender.setObjectName(QStringLiteral("x"));
    otherSender.setObjectName(QStringLiteral("y"));
    QCOMPARE(receiver.calls, (QStringList{"second x", "first y"}));
    QCOMPARE(otherReceiver.calls, QStringList{"first x"});
    QVERIFY(QObject::disconnect(&otherReceiver, SIGNAL(announced()), &receiver, SLOT(deleteLater())));
}

void tst_Connect::connectKeepsTheType()
{
    QObject sender;
    SlotOwner receiver;
    QVERIFY(CObject_X::Connect(&sender, SIGNAL(objectNameChanged(QString)), &receiver, SLOT(first(QString)), &sender,
                               Qt::QueuedConnection));
    sender.setObjectName(QStringLiteral("x"));
    QCOMPARE(receiver.calls, QStringList());
    QCoreApplication::sendPostedEvents(&receiver, QEvent::MetaCall);
    QCOMPARE(receiver.calls, QStringList{"first x"});
}

void tst_Connect::connectIsUniqueUnlessSaidOtherwise()
{
    QObject sender;
    SlotOwner owner;
    const char* const changed = SIGNAL(objectNameChanged(QString));
    QVERIFY(CObject_X::Connect(&sender, changed, &owner, SLOT(first(QString))));
    QVERIFY(!QObject::connect(&sender, changed, &owner, SLOT(first(QString)), Qt::UniqueConnection));
    sender.setObjectName(QStringLiteral("a"));
    QCOMPARE(owner.calls, QStringList{QStringLiteral("first a")});
}

void tst_Connect::connectWithNull()
{
    const QObject sender;
    const SlotOwner receiver;
    const char* const signal = SIGNAL(objectNameChanged(QString));
    const char* const slot = SLOT(first(QString));
    const auto connect = [](const QObject* from, const char* sig, const QObject* to, const char* slt) {
        return bool(CObject_X::Connect(from, sig, to, slt, nullptr, Qt::AutoConnection));
    };
    QVERIFY(!connect(nullptr, signal, &receiver, slot));
    QVERIFY(!connect(&sender, nullptr, &receiver, slot));
    QVERIFY(!connect(&sender, signal, nullptr, slot));
    QVERIFY(!connect(&sender, signal, &receiver, nullptr));
}

void tst_Connect::connectById_data()
{
    QTest::addColumn<unsigned>("id");
    QTest::addColumn<QString>("object");
    QTest::addColumn<bool>("connects");

    QTest::newRow("child") << 1001u << "IDC_APPLY" << true;
    QTest::newRow("the highest identifier") << 4294967295u << "IDC_HIGHEST" << true;
    QTest::newRow("identifier whose name no object has") << 1002u << "IDC_APPLY" << false;
    QTest::newRow("identifier that is not in the table") << 4711u << "IDC_APPLY" << false;
    QTest::newRow("identifier 0") << 0u << "IDC_APPLY" << false;
    QTest::newRow("letter case of the name counts") << 1001u << "idc_apply" << false;
}

void tst_Connect::connectById()
{
    QFETCH(unsigned, id);
    QFETCH(QString, object);
    QFETCH(bool, connects);

    QWidget root;
    QWidget group(&root);
    QLineEdit nested(&group);
    nested.setObjectName(object);
    SlotOwner receiver;

    const auto connection = CObject_X::Connect(id, SIGNAL(textChanged(QString)), &receiver, SLOT(first(QString)), &root,
                                               Qt::UniqueConnection);
    QCOMPARE(bool(connection), connects);
    nested.setText(QStringLiteral("x"));
    QCOMPARE(receiver.calls, connects ? QStringList{"first x"} : QStringList());
}

void tst_Connect::connectByIdReplaces()
{
    QObject root;
    QObject child(&root);
    child.setObjectName(QStringLiteral("IDC_APPLY"));
    SlotOwner receiver;
    for (const char* slot : {SLOT(first(QString)), SLOT(second(QString))}) {
        QVERIFY(
            CObject_X::Connect(1001u, SIGNAL(objectNameChanged(QString)), &receiver, slot, &root, Qt::AutoConnection));
    }
    child.setObjectName(QStringLiteral("x"));
    QCOMPARE(receiver.calls, QStringList{"second x"});
}

void tst_Connect::connectByIdTakesTheFirstOfTheName()
{
    QObject root;
    root.setObjectName(QStringLiteral("IDC_APPLY"));
    SlotOwner receiver;
    const auto connect = [&] {
        return bool(CObject_X::Connect(1001u, SIGNAL(objectNameChanged(QString)), &receiver, SLOT(first(QString)),
                                       &root, Qt::AutoConnection));
    };
    QVERIFY(!connect()); // the root itself is not below the root

    QObject one(&root);
    QObject other(&root);
    one.setObjectName(QStringLiteral("IDC_APPLY"));
    other.setObjectName(QStringLiteral("IDC_APPLY"));
    QVERIFY(connect());
    other.setObjectName(QStringLiteral("other"));
    one.setObjectName(QStringLiteral("one"));
    QCOMPARE(receiver.calls, QStringList{"first one"});
}

void tst_Connect::connectByIdNeedsARoot()
{
    const SlotOwner receiver;
    QVERIFY(!CObject_X::Connect(1001u, SIGNAL(objectNameChanged(QString)), &receiver, SLOT(first(QString)), nullptr,
                                Qt::AutoConnection));
}

void tst_Connect::anEmptyNameIsNoName()
{
    QObject root;
    QObject nameless(&root);
    SlotOwner receiver;
    // The table has 1003 with an empty name, and nothing under 1004.
    for (const unsigned id : {1003u, 1004u}) {
        QVERIFY(!CObject_X::Connect(id, SIGNAL(objectNameChanged(QString)), &receiver, SLOT(first(QString)), &root,
                                    Qt::AutoConnection));
    }
    nameless.setObjectName(QStringLiteral("x"));
    QCOMPARE(receiver.calls, QStringList());
}

XE_TEST(tst_Connect)
#include "tst_connect.moc"
