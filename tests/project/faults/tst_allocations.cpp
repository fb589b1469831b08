// Want of memory at every single place: a defined result, nothing lost, nothing broken.

#include "failingallocation.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QtTest>

#include <functional>
#include <memory>
#include <numeric>

// In place of the C library's: some thousand waits for the disk would prove nothing here.
extern "C" Q_DECL_EXPORT int fdatasync(int) { return 0; }

namespace {

/// What is done without memory. It is made anew for each failure, with what it works on.
using Action = std::function<void()>;
using Scenario = std::function<Action()>;

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool failsMalloc = false;
#else
constexpr bool failsMalloc = true;
#endif

const wchar_t* const longText = L"a text that is too long to stand in the object itself, and so wants memory";

// ------------------------------------------------------------------------------------------------------------ strings

Action stringOperations()
{
    return [] {
        CString_X text(longText);
        text += L" more";
        text.AppendFormat(L"%d %s %f %S", 5, longText, 1.5, "narrow");
        text.Replace(L"text", L"much longer text");
        text.Insert(3, longText);
        text.MakeUpper();
        const CString_X part = text.Mid(5, 60) + text.Left(40);
        text = part.SpanExcluding(L"#");
        text.GetBuffer(200)[0] = L'x';
        text.ReleaseBuffer();
        const char* const narrow = text;
        CString_X back(narrow);
        back.Trim();
        const XeQString qt(back.GetString());
        if (CString_X(qt) != text)
            qFatal("not the same text");
    };
}

// A text that could not be changed is as it was.
Action failedTextStays()
{
    const auto text = std::make_shared<CString_X>(longText);
    return [text] {
        const CString_X before(*text);
        try {
            *text = CString_X(L"another, which is just as long as the first one and does not fit in either");
        } catch (const std::bad_alloc&) {
            if (*text != before)
                qFatal("half a text");
            throw;
        }
    };
}

// -------------------------------------------------------------------------------------------------------- collections

template <class Array, class Element>
Action arrayOperations(const Element& element)
{
    const auto array = std::make_shared<Array>();
    return [array, element] {
        for (int i = 0; i < 40; ++i)
            array->Add(element);
        array->InsertAt(5, element, 20);
        array->SetAtGrow(100, element);
        Array copy;
        copy.Append(*array);
        copy.Copy(*array);
        copy.RemoveAt(3, 10);
        array->FreeExtra();
        array->RemoveAll();
    };
}

template <class List, class Element>
Action listOperations(const Element& element)
{
    const auto list = std::make_shared<List>(5);
    return [list, element] {
        for (int i = 0; i < 12; ++i)
            list->AddTail(element);
        list->InsertAfter(list->FindIndex(3), element);
        List copy;
        copy.AddHead(list.get());
        list->RemoveTail();
        list->RemoveAll();
    };
}

Action mapOperations()
{
    const auto texts = std::make_shared<CMapStringToString_X>();
    const auto numbers = std::make_shared<CMapWordToPtr_X>();
    return [texts, numbers] {
        for (int i = 0; i < 30; ++i) {
            CString_X key;
            key.Format(L"%s %d", longText, i);
            texts->SetAt(key, longText);
            (*numbers)[static_cast<unsigned short>(i)] = nullptr;
        }
        CString_X value;
        for (int i = 0; i < 30; ++i) {
            CString_X key;
            key.Format(L"%s %d", longText, i);
            if (!texts->Lookup(key, value))
                qFatal("a key is not found");
        }
        texts->RemoveAll();
        numbers->RemoveAll();
    };
}

// What is in a collection after a failure is whole, and can be counted and taken out.
Action failedAddLeavesAWholeArray()
{
    const auto array = std::make_shared<CStringArray_X>();
    return [array] {
        try {
            for (int i = 0; i < 20; ++i)
                array->Add(longText);
        } catch (const std::bad_alloc&) {
            for (int i = 0; i < array->GetSize(); ++i) {
                if (array->GetAt(i) != longText && !array->GetAt(i).IsEmpty())
                    qFatal("half a text in an array");
            }
            throw;
        }
    };
}

// ------------------------------------------------------------------------------------------------------------- archive

template <class File>
Action archiveOperations(const std::shared_ptr<File>& file)
{
    return [file] {
        {
            CArchive_X archive(file.get(), CArchive_X::store);
            for (int i = 0; i < 500; ++i)
                archive << i << CString_X(longText);
        }
        file->SeekToBegin();
        CArchive_X archive(file.get(), CArchive_X::load);
        for (int i = 0; i < 500; ++i) {
            int number = 0;
            CString_X text;
            archive >> number >> text;
            if (number != i && number != 0) // 0 behind the place where memory was wanting
                qFatal("a shifted archive");
        }
    };
}

Action archiveInMemory() { return archiveOperations(std::make_shared<CMemFile_X>(64u)); }

Action archiveOnDisk()
{
    static const QTemporaryDir folder;
    const std::wstring name = folder.filePath("archive").toStdWString();
    return archiveOperations(std::make_shared<CFile_X>(name.c_str(), CFile_X::modeReadWrite));
}

Action collectionsInArchives()
{
    const auto file = std::make_shared<CMemFile_X>(64u);
    const auto texts = std::make_shared<CStringArray_X>();
    for (int i = 0; i < 20; ++i)
        texts->Add(longText);
    return [file, texts] {
        {
            CArchive_X archive(file.get(), CArchive_X::store);
            texts->Serialize(archive);
        }
        file->SeekToBegin();
        CArchive_X archive(file.get(), CArchive_X::load);
        CStringArray_X loaded;
        loaded.Serialize(archive);
    };
}

// ------------------------------------------------------------------------------------------------------------ registry

// Without a flush, which Qt does not survive: its lock wants memory as it goes.
std::shared_ptr<QString> openedKey()
{
    HKEY key = nullptr;
    RegOpenKeyExW_X(HKEY_CURRENT_USER, L"Software\\Acme", 0, 0, &key);
    return {key, [](HKEY handle) {
                RegDeleteTree_X(handle, nullptr);
                RegCloseKey_X(handle);
                RegFlushKey_X(nullptr);
            }};
}

Action registryOperations()
{
    return [opened = openedKey()] {
        HKEY const handle = opened.get();
        const DWORD number = 5;
        RegSetValueExW_X(handle, L"number", 0, REG_DWORD, &number, sizeof number);
        RegSetValueExW_X(handle, L"text", 0, REG_SZ, longText, 0);
        char text[100] = {};
        DWORD size = 0;
        RegQueryValueExW_X(handle, L"text", nullptr, nullptr, text, &size);
        RegDeleteValue_X(handle, L"number");
        HKEY other = nullptr;
        RegOpenKeyExW_X(HKEY_CURRENT_USER, L"Software\\Acme\\Other", 0, 0, &other);
        RegCloseKey_X(other);
    };
}

// Not counted, since QSettings::allKeys() loses its list of keys when memory is wanting in the midst of it.
Action namesInRegistry()
{
    const auto opened = openedKey();
    RegSetValueExW_X(opened.get(), L"text", 0, REG_SZ, longText, 0);
    return [opened] {
        wchar_t name[100] = {};
        DWORD length = 0;
        for (DWORD i = 0; RegEnumKeyEx_X(opened.get(), i, name, &length, nullptr, nullptr, nullptr, nullptr) == 0; ++i)
            continue;
    };
}

// -------------------------------------------------------------------------------------------------------- thread slots

class CValue : public CNoTrackObject_X
{
};

Action threadSlots()
{
    return [] {
        CThreadSlotData_X values;
        for (int i = 0; i < 40; ++i)
            values.SetValue(values.AllocSlot(), nullptr);
        std::unique_ptr<CValue> value(new CValue);
        values.SetValue(35, value.get());
        value.release();
        values.FreeSlot(3);
        values.DeleteValues(nullptr, TRUE);
    };
}

Action threadLocals()
{
    return [] {
        CThreadLocal_X<CValue> first;
        CThreadLocal_X<CValue> second;
        first.GetData();
        second.GetData();
    };
}

/// The slots without memory for their end, which gives memory back and wants none.
Action endOfThreadSlots()
{
    const auto values = std::make_shared<std::unique_ptr<CThreadSlotData_X>>(new CThreadSlotData_X);
    for (int i = 0; i < 10; ++i)
        (*values)->SetValue((*values)->AllocSlot(), new CValue);
    return [values] {
        const int before = std::uncaught_exceptions();
        values->reset();
        if (std::uncaught_exceptions() != before)
            qFatal("a destructor raises");
    };
}

} // namespace

Q_DECLARE_METATYPE(Scenario)

class tst_Allocations : public QObject
{
    Q_OBJECT

private slots:
    void everyFailureIsDefined_data();
    void everyFailureIsDefined();
};

void tst_Allocations::everyFailureIsDefined_data()
{
    QTest::addColumn<Scenario>("scenario");
    QTest::addColumn<bool>("allocates");
    QTest::addColumn<bool>("isCounted");
    const auto add = [](const char* name, const Scenario& scenario, bool allocates = true, bool isCounted = true) {
        QTest::newRow(name) << scenario << allocates << isCounted;
    };
    add("strings", stringOperations);
    add("a text that stays", failedTextStays);
    add("array of numbers", [] { return arrayOperations<CUIntArray_X>(7u); });
    add("array of addresses", [] { return arrayOperations<CPtrArray_X>(static_cast<void*>(nullptr)); });
    add("array of texts", [] { return arrayOperations<CStringArray_X>(CString_X(longText)); });
    add("an array that stays whole", failedAddLeavesAWholeArray);
    add("list of addresses", [] { return listOperations<CPtrList_X>(static_cast<void*>(nullptr)); });
    add("list of texts", [] { return listOperations<CStringList_X>(longText); });
    add("maps", mapOperations);
    add("archive in memory", archiveInMemory);
    add("archive on disk", archiveOnDisk);
    add("collections in archives", collectionsInArchives);
    add("registry", registryOperations);
    add("names in the registry", namesInRegistry, true, false);
    add("thread slots", threadSlots, failsMalloc);
    add("objects of a thread", threadLocals, failsMalloc);
    add("end of thread slots", endOfThreadSlots, false);
}

// Whether an allocation has failed.
static bool fails(const Scenario& scenario, int number)
{
    const Action action = scenario();
    FailingAllocation allocation(number);
    try {
        action();
    } catch (const std::bad_alloc&) {
    } catch (CException_X* exception) {
        exception->Delete();
    }
    return allocation.end();
}

// The blocks that are there when nothing is left to be done.
static long restingBlocks()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return FailingAllocation::blocks();
}

void tst_Allocations::everyFailureIsDefined()
{
    QFETCH(Scenario, scenario);
    QFETCH(bool, allocates);
    QFETCH(bool, isCounted);
    constexpr int none = 1 << 30;
    for (int round = 0; round < 3; ++round) // what is made once and kept is there then
        fails(scenario, none);
    const long before = restingBlocks();
    int number = 1;
    while (fails(scenario, number))
        ++number;
    fails(scenario, none);
    QVERIFY(!isCounted || restingBlocks() == before);
    QCOMPARE(number > 1, allocates);
}

XE_GUILESS_TEST(tst_Allocations)
#include "tst_allocations.moc"
