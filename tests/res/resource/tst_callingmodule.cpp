// Which module a lookup answers for: the innermost caller that is not the library.

#include "deepcalls.h"
#include "inquirywindow.h"
#include "leavenothing.h"
#include "loadedplugin.h"
#include "testclass.h"

#include <QSignalSpy>

namespace {

const QString red = qEnvironmentVariable("RED");
const QString blue = qEnvironmentVariable("BLUE");

bool isLoaded(const QString& file)
{
    void* const library = dlopen(QFile::encodeName(file), RTLD_NOW | RTLD_NOLOAD);
    if (library)
        dlclose(library);
    return library;
}

} // namespace

class tst_CallingModule : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void eachModuleHasItsName();
    void eachModuleHasItsOwnAnswers();
    void aTextIsLoadedThroughTheStringClass();
    void aModuleWithoutTablesFindsNothing();
    void connectionByIdUsesTheCallersNames();

    void aHandlerIsTheCaller();
    void handlersOfManyModulesInsideEachOther();
    void handlersInsideEachOtherWithoutEnd();

    void sixteenFramesAreLookedAt_data();
    void sixteenFramesAreLookedAt();

    void nameOfACopyEndsAtTheFirstDot_data();
    void nameOfACopyEndsAtTheFirstDot();
    void modulesThatTakeEachOthersPlace();
    void copiesThatTakeEachOthersPlace();
};

void tst_CallingModule::eachModuleHasItsName()
{
    QCOMPARE(LoadedPlugin(red)->module(), QStringLiteral("libxe_test_red"));
    QCOMPARE(LoadedPlugin(blue)->module(), QStringLiteral("blue"));
    QCOMPARE(LoadedPlugin(barePlugin())->module(), QStringLiteral("libxe_test_bare"));
    QCOMPARE(GetPlxResourceName(), QStringLiteral("test_res"));
}

void tst_CallingModule::eachModuleHasItsOwnAnswers()
{
    const LoadedPlugin redPlugin(red);
    const LoadedPlugin bluePlugin(blue);

    QCOMPARE(redPlugin->objectName(1001), QStringLiteral("IDC_RED"));
    QCOMPARE(bluePlugin->objectName(1001), QStringLiteral("IDC_BLUE"));
    QCOMPARE(GetObjectNameById(1001), QStringLiteral("IDC_PART"));

    QCOMPARE(redPlugin->stringId(1011), QStringLiteral("IDC_ONLY_RED"));
    QCOMPARE(bluePlugin->stringId(1011), QString());
    QCOMPARE(ToStringId(1011), QString());

    QCOMPARE(redPlugin->ctrlId("IDC_SHARED"), 1010);
    QCOMPARE(bluePlugin->ctrlId("IDC_SHARED"), 2010);
    QCOMPARE(ToCtrlId("IDC_SHARED"), 0);

    QCOMPARE(redPlugin->text(1001), QStringLiteral("red 红"));
    QCOMPARE(bluePlugin->text(1001), QStringLiteral("blue 蓝"));
    QCOMPARE(GetResourceStringById(1001), QStringLiteral("part of the host"));

    QCOMPARE(redPlugin->ids().size(), 3);
    QCOMPARE(bluePlugin->ids().size(), 2);
    QCOMPARE(bluePlugin->texts(), (QMap<QString, QString>{{"IDC_BLUE", "blue 蓝"}}));
}

void tst_CallingModule::aTextIsLoadedThroughTheStringClass()
{
    const LoadedPlugin redPlugin(red);
    const LoadedPlugin bluePlugin(blue);
    wchar_t buffer[8]{};
    QCOMPARE(redPlugin->loadString(1001, buffer, 8), 5);
    QVERIFY(buffer == std::wstring(L"red 红"));

    CString_X text;
    QCOMPARE(bluePlugin->loadString(text, 1001), 1);
    QVERIFY(text == L"blue 蓝");
    QCOMPARE(redPlugin->loadString(text, 1001), 1);
    QVERIFY(text == L"red 红");
    QCOMPARE(bluePlugin->loadString(text, 1011), 0);
    QVERIFY(text == L"red 红");
}

void tst_CallingModule::aModuleWithoutTablesFindsNothing()
{
    const LoadedPlugin plugin(barePlugin());
    QVERIFY(plugin->ids().isEmpty());
    QVERIFY(plugin->texts().isEmpty());
    QCOMPARE(plugin->objectName(1001), QString());
    QCOMPARE(plugin->ctrlId("IDC_PART"), 0);
    QCOMPARE(plugin->text(1001), QString());
    wchar_t element = L'#';
    QCOMPARE(plugin->loadString(1001, &element, 1), 0);
    QCOMPARE(element, L'#');
}

void tst_CallingModule::connectionByIdUsesTheCallersNames()
{
    const LoadedPlugin redPlugin(red);
    const LoadedPlugin bluePlugin(blue);
    QObject root;
    QAction redAction(&root);
    QAction blueAction(&root);
    redAction.setObjectName("IDC_RED");
    blueAction.setObjectName("IDC_BLUE");
    QAction ofRed;
    QAction ofBlue;
    const QSignalSpy redCalls(&ofRed, &QAction::triggered);
    const QSignalSpy blueCalls(&ofBlue, &QAction::triggered);

    QVERIFY(redPlugin->connectById(1001, &root, &ofRed));
    QVERIFY(bluePlugin->connectById(1001, &root, &ofBlue));
    QVERIFY(!CObject_X::Connect(1001u, SIGNAL(triggered()), &ofRed, SLOT(trigger()), &root));
    blueAction.trigger();
    QCOMPARE(redCalls.size(), 0);
    QCOMPARE(blueCalls.size(), 1);
    redAction.trigger();
    QCOMPARE(redCalls.size(), 1);
    QCOMPARE(blueCalls.size(), 1);
}

// ---------------------------------------------------------------------------------------------------------- handlers

void tst_CallingModule::aHandlerIsTheCaller()
{
    const LoadedPlugin plugin(red);
    Inquiry inquiry{1001, {}, {}};
    SendMessage_X(plugin->window(), inquiryMessage, 0, reinterpret_cast<LPARAM>(&inquiry));
    QCOMPARE(inquiry.answers, (QStringList{"IDC_RED", "red 红"}));
}

void tst_CallingModule::handlersOfManyModulesInsideEachOther()
{
    const LoadedPlugin redPlugin(red);
    const LoadedPlugin bluePlugin(blue);
    InquiryWindow host;
    Inquiry inquiry{1001, {bluePlugin->window(), host.widget(), redPlugin->window()}, {}};
    SendMessage_X(redPlugin->window(), inquiryMessage, 0, reinterpret_cast<LPARAM>(&inquiry));
    const QStringList expected{"IDC_RED", "IDC_BLUE",         "IDC_PART", "IDC_RED",
                               "red 红",  "part of the host", "blue 蓝",  "red 红"};
    QCOMPARE(inquiry.answers, expected);
}

void tst_CallingModule::handlersInsideEachOtherWithoutEnd()
{
    const LoadedPlugin redPlugin(red);
    const LoadedPlugin bluePlugin(blue);
    Inquiry inquiry{1001, {}, {}};
    QStringList expected;
    for (int i = 0; i < 40; ++i) {
        inquiry.route += i % 2 ? bluePlugin->window() : redPlugin->window();
        expected += i % 2 ? "IDC_BLUE" : "IDC_RED";
    }
    for (int i = 40; i-- > 0;)
        expected += i % 2 ? "blue 蓝" : "red 红";
    SendMessage_X(inquiry.route.takeFirst(), inquiryMessage, 0, reinterpret_cast<LPARAM>(&inquiry));
    QCOMPARE(inquiry.answers, expected);
}

// ------------------------------------------------------------------------------------------------------------ limits

void tst_CallingModule::sixteenFramesAreLookedAt_data()
{
    QTest::addColumn<int>("frames");
    QTest::addColumn<QString>("module");
    QTest::newRow("one call") << 1 << "test_res";
    QTest::newRow("the caller is the sixteenth") << 14 << "test_res";
    QTest::newRow("the caller is the seventeenth") << 15 << "libXeHostEmu";
    QTest::newRow("far too deep") << 40 << "libXeHostEmu";
}

// GetPlxResourceName is the first frame itself.
void tst_CallingModule::sixteenFramesAreLookedAt()
{
    QFETCH(const int, frames);
    QTEST(moduleBehind(frames), "module");
}

// --------------------------------------------------------------------------------------------- modules come and go

void tst_CallingModule::nameOfACopyEndsAtTheFirstDot_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("module");
    QTest::newRow("version behind the suffix") << "libFoo.so.1"
                                               << "libFoo";
    QTest::newRow("version before the suffix") << "libFoo-2.5.so"
                                               << "libFoo-2";
    QTest::newRow("no suffix") << "plugin"
                               << "plugin";
    QTest::newRow("no lib") << "Foo.plx"
                            << "Foo";
    QTest::newRow("blanks and parentheses") << "my plug-in (2).so"
                                            << "my plug-in (2)";
    QTest::newRow("Chinese") << "零件.so"
                             << "零件";
    QTest::newRow("hidden") << ".so"
                            << "";
    QTest::newRow("case differs from an own name") << "libxemfcemu.so"
                                                   << "libxemfcemu";
    QTest::newRow("own name, so the caller's caller counts") << "libXeMFCEmu.so"
                                                             << "test_res";
}

void tst_CallingModule::nameOfACopyEndsAtTheFirstDot()
{
    QFETCH(const QString, file);
    PluginCopies copies;
    QTEST(LoadedPlugin(copies.copyOf(barePlugin(), file))->module(), "module");
}

void tst_CallingModule::modulesThatTakeEachOthersPlace()
{
    QSet<quintptr> addresses;
    for (int i = 0; i < 100; ++i) {
        const bool isRed = i % 2;
        {
            const LoadedPlugin plugin(isRed ? red : blue);
            QCOMPARE(plugin->objectName(1001), isRed ? QStringLiteral("IDC_RED") : QStringLiteral("IDC_BLUE"));
            QCOMPARE(plugin->text(1001), isRed ? QStringLiteral("red 红") : QStringLiteral("blue 蓝"));
            addresses += plugin.address();
        }
        QVERIFY(!isLoaded(isRed ? red : blue));
    }
    QVERIFY2(addresses.size() < 100, "no module took the place of another");
}

void tst_CallingModule::copiesThatTakeEachOthersPlace()
{
    PluginCopies copies;
    QSet<quintptr> addresses;
    for (int i = 0; i < 100; ++i) {
        const QString name = QStringLiteral("libcopy%1").arg(i % 25);
        const LoadedPlugin plugin(copies.copyOf(barePlugin(), name + QStringLiteral(".so")));
        QCOMPARE(plugin->module(), name);
        addresses += plugin.address();
    }
    QVERIFY2(addresses.size() < 100, "no module took the place of another");
}

XE_TEST(tst_CallingModule)
#include "tst_callingmodule.moc"
