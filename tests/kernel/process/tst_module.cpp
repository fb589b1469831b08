#include "process/widestring.h"
#include "testclass.h"

#include <xeprocess.h>

#include <dlfcn.h>

// Loading libraries by hand.

namespace {

QString loadable() { return qEnvironmentVariable("LOADABLE"); }

HMODULE load(const QString& path) { return LoadLibrary_X(path.toStdWString().c_str()); }

bool isLoaded(const QString& path)
{
    void* const module = dlopen(QFile::encodeName(path), RTLD_LAZY | RTLD_NOLOAD);
    if (module)
        dlclose(module);
    return module;
}

int call(FARPROC function) { return reinterpret_cast<int (*)()>(function)(); }

} // namespace

class tst_Module : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(QFile::exists(loadable())); }
    void cleanup() { QVERIFY(!isLoaded(loadable())); }
    void loadCallAndFree();
    void theSymbolsServeAll();
    void aPathWithOtherLetters();
    void whatIsNotLoaded_data();
    void whatIsNotLoaded();
    void noSearchInTheDllDirectory();
    void freeingNothing();
    void theHandleOfALoadedModule();
    void theHandleDoesNotHoldTheModule();
    void symbolsThatAreNotThere();
    void fileName();
    void fileNameIsCut();
    void theProgramHasNoNameInItsLinkMap();
};

void tst_Module::loadCallAndFree()
{
    const HMODULE module = load(loadable());
    QVERIFY(module);
    QCOMPARE(call(GetProcAddress_X(module, "fortyTwo")), 42);

    QCOMPARE(load(loadable()), module);
    QCOMPARE(FreeLibrary_X(module), 1);
    QVERIFY(isLoaded(loadable()));
    QCOMPARE(FreeLibrary_X(module), 1);
    QVERIFY(!isLoaded(loadable()));
}

void tst_Module::theSymbolsServeAll()
{
    // The C library keeps a module loaded that was found in such a way, so it is one that no other test needs.
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("kept.so"));
    QVERIFY(QFile::copy(loadable(), path));

    QVERIFY(!GetProcAddress_X(nullptr, "fortyTwo"));
    const HMODULE module = load(path);
    QVERIFY(module);
    QCOMPARE(GetProcAddress_X(nullptr, "fortyTwo"), GetProcAddress_X(module, "fortyTwo"));
    FreeLibrary_X(module);
}

void tst_Module::aPathWithOtherLetters()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QString::fromUtf8("Zubehör-\xF0\x9F\x94\xA9.so"));
    QVERIFY(QFile::copy(loadable(), path));
    const HMODULE module = load(path);
    QVERIFY(module);
    QCOMPARE(call(GetProcAddress_X(module, "fortyTwo")), 42);

    wchar_t buffer[1024];
    QCOMPARE(GetModuleFileName_X(module, buffer, 1024), 1U);
    QCOMPARE(QString::fromWCharArray(buffer), path);
    FreeLibrary_X(module);
}

void tst_Module::whatIsNotLoaded_data()
{
    QTest::addColumn<std::wstring>("path");
    QTest::newRow("nothing, which is not the process") << std::wstring();
    QTest::newRow("a missing file") << std::wstring(L"/no/such/library.so");
    QTest::newRow("a file that is no library") << std::wstring(L"/etc/passwd");
    QTest::newRow("a folder") << std::wstring(L"/usr");
    QTest::newRow("a path without its suffix") << loadable().section(QLatin1Char('.'), 0, -2).toStdWString();
    QTest::newRow("a surrogate") << std::wstring(1, wchar_t(0xD800));
    QTest::newRow("an element above the last code point") << std::wstring(1, wchar_t(0x110000));
    QTest::newRow("a negative element") << std::wstring(1, wchar_t(-1));
}

void tst_Module::whatIsNotLoaded()
{
    QFETCH(std::wstring, path);
    QCOMPARE(LoadLibrary_X(path.c_str()), nullptr);
    QCOMPARE(GetModuleHandle_X(path.c_str()), nullptr);
    QCOMPARE(LoadLibrary_X(nullptr), nullptr);
    QCOMPARE(GetModuleHandle_X(nullptr), nullptr);
}

void tst_Module::noSearchInTheDllDirectory()
{
    const QTemporaryDir folder;
    QVERIFY(QFile::copy(loadable(), folder.filePath(QStringLiteral("spare.so"))));
    QVERIFY(SetDllDirectory_X(folder.path().toStdWString().c_str()));
    QCOMPARE(LoadLibrary_X(L"spare.so"), nullptr);
    QCoreApplication::removeLibraryPath(folder.path());
}

void tst_Module::freeingNothing() { QCOMPARE(FreeLibrary_X(nullptr), 1); }

void tst_Module::theHandleOfALoadedModule()
{
    const HMODULE module = load(loadable());
    QCOMPARE(GetModuleHandle_X(loadable().toStdWString().c_str()), module);
    QVERIFY(isLoaded(loadable()));
    FreeLibrary_X(module);
}

void tst_Module::theHandleDoesNotHoldTheModule()
{
    QVERIFY(GetModuleHandle_X(loadable().toStdWString().c_str()));
    QVERIFY(!isLoaded(loadable()));
}

void tst_Module::symbolsThatAreNotThere()
{
    const HMODULE module = load(loadable());
    QCOMPARE(GetProcAddress_X(module, "fortyThree"), nullptr);
    QCOMPARE(GetProcAddress_X(module, ""), nullptr);
    QCOMPARE(GetProcAddress_X(module, nullptr), nullptr);
    QCOMPARE(GetProcAddress_X(nullptr, nullptr), nullptr);
    FreeLibrary_X(module);
}

void tst_Module::fileName()
{
    const HMODULE module = load(loadable());
    std::wstring buffer(1024, L'x');
    QCOMPARE(GetModuleFileName_X(module, buffer.data(), 1023), 1U);
    QCOMPARE(QString::fromStdWString(buffer.c_str()), loadable());
    QCOMPARE(buffer[1022], L'\0');
    QCOMPARE(buffer[1023], L'x');
    FreeLibrary_X(module);
}

void tst_Module::fileNameIsCut()
{
    const std::wstring path = loadable().toStdWString();
    const HMODULE module = load(loadable());
    std::wstring buffer(path.size() + 1, L'x');
    QCOMPARE(GetModuleFileName_X(module, buffer.data(), DWORD(path.size())), 1U);
    QCOMPARE(buffer, path + L'x');
    buffer.assign(4, L'x');
    QCOMPARE(GetModuleFileName_X(module, buffer.data(), 3), 1U);
    QCOMPARE(buffer, path.substr(0, 3) + L'x');
    QCOMPARE(GetModuleFileName_X(module, buffer.data(), 0), 0U);
    QCOMPARE(GetModuleFileName_X(module, nullptr, 100), 0U);
    FreeLibrary_X(module);
}

void tst_Module::theProgramHasNoNameInItsLinkMap()
{
    void* const program = dlopen(nullptr, RTLD_LAZY);
    QVERIFY(program);
    std::wstring buffer(4, L'x');
    QCOMPARE(GetModuleFileName_X(program, buffer.data(), 3), 0U);
    QCOMPARE(buffer, std::wstring(L"\0\0\0x", 4));
    dlclose(program);
}

XE_GUILESS_TEST(tst_Module)
#include "tst_module.moc"
