#include "testclass.h"

#include <xeafxdump.h>

#include <sys/mman.h>
#include <unistd.h>

// The memory figures of the process.

namespace {

QStringList lines;

void keepLine(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    lines += QStringLiteral("%1 %2: %3").arg(type).arg(QLatin1String(context.category), text);
}

// Address space, of which the first `touched` bytes are in use.
class Block
{
public:
    explicit Block(size_t size, size_t touched = 0)
        : m_size(size),
          m_start(mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0))
    {
        if (touched > 0)
            memset(m_start, 1, touched);
    }
    ~Block() { munmap(m_start, m_size); }
    Q_DISABLE_COPY_MOVE(Block)

    bool isThere() const { return m_start != MAP_FAILED; }

private:
    size_t m_size;
    void* m_start;
};

constexpr size_t megabyte = 1024 * 1024;

} // namespace

class tst_MemoryState : public QObject
{
    Q_OBJECT

private slots:
    void construction();
    void theFiguresOfTheProcess();
    void addressSpaceGrows();
    void memoryInUseGrows();
    void moreAddressSpaceThanAnIntCounts();
    void difference();
    void statistics();
    void stubs();
    void apiExamples();
};

void tst_MemoryState::construction()
{
    const CMemoryState_X state;
    QCOMPARE(state.physicalKB, 0LL);
    QCOMPARE(state.virtualKB, 0LL);
    QCOMPARE(offsetof(CMemoryState_X, physicalKB), size_t(0));
    QCOMPARE(offsetof(CMemoryState_X, virtualKB), size_t(8));
}

// The other place where the system tells the address space, in pages.
void tst_MemoryState::theFiguresOfTheProcess()
{
    CMemoryState_X state;
    state.Checkpoint();
    QFile file(QStringLiteral("/proc/self/statm"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const qint64 pageKB = sysconf(_SC_PAGESIZE) / 1024;
    const qint64 virtualKB = file.readAll().split(' ').first().toLongLong() * pageKB;
    QVERIFY(qAbs(state.virtualKB - virtualKB) < 16 * 1024);
    QVERIFY(state.physicalKB > 0);
    QVERIFY(state.physicalKB < state.virtualKB);
}

void tst_MemoryState::addressSpaceGrows()
{
    CMemoryState_X before, after, change;
    before.Checkpoint();
    const Block block(64 * megabyte);
    QVERIFY(block.isThere());
    after.Checkpoint();
    QCOMPARE(change.Difference(before, after), 1);
    QVERIFY(change.virtualKB >= 60 * 1024);
    QVERIFY(change.physicalKB < 32 * 1024);
    QCOMPARE(change.Difference(after, before), 1);
    QVERIFY(change.virtualKB <= -60 * 1024);
}

void tst_MemoryState::memoryInUseGrows()
{
    CMemoryState_X before, after, change;
    before.Checkpoint();
    const Block block(64 * megabyte, 64 * megabyte);
    QVERIFY(block.isThere());
    after.Checkpoint();
    change.Difference(before, after);
    QVERIFY(change.physicalKB >= 60 * 1024);
}

void tst_MemoryState::moreAddressSpaceThanAnIntCounts()
{
    constexpr size_t terabyte = megabyte * megabyte;
    constexpr long long kilobytes = 3LL * 1024 * 1024 * 1024;
    CMemoryState_X before, after, change;
    before.Checkpoint();
    const Block block(3 * terabyte);
    after.Checkpoint();
    change.Difference(before, after);
    QCOMPARE(change.virtualKB >= kilobytes, block.isThere()); // which the system may refuse
    QVERIFY(after.virtualKB > (block.isThere() ? kilobytes : 0));
}

void tst_MemoryState::difference()
{
    CMemoryState_X one, other, change;
    one.physicalKB = 10;
    one.virtualKB = 400;
    other.physicalKB = 7;
    other.virtualKB = 4000000000000;
    change.physicalKB = 99;
    QCOMPARE(change.Difference(one, other), 1);
    QCOMPARE(change.physicalKB, -3LL);
    QCOMPARE(change.virtualKB, 3999999999600LL);
    QCOMPARE(one.Difference(one, one), 1);
    QCOMPARE(one.physicalKB, 0LL);
    QCOMPARE(one.virtualKB, 0LL);
}

void tst_MemoryState::statistics()
{
    CMemoryState_X state;
    state.physicalKB = -3;
    state.virtualKB = 4000000000000;
    lines.clear();
    const QtMessageHandler before = qInstallMessageHandler(keepLine);
    state.DumpStatistics();
    qInstallMessageHandler(before);
    // QDebug puts a blank between two items.
    QCOMPARE(lines, QStringList{QStringLiteral("0 default: Physical Memory changed:  -3  KB.  "
                                               "Virtual Memory changed:  4000000000000  KB.")});
}

void tst_MemoryState::stubs()
{
    CMemoryState_X state;
    state.physicalKB = 5;
    state.UpdateData();
    state.DumpAllObjectsSince();
    QCOMPARE(state.physicalKB, 5LL);
    QCOMPARE(state.virtualKB, 0LL);
}

void tst_MemoryState::apiExamples()
{
    std::unique_ptr<Block> block;
    const auto work = [&block] { block = std::make_unique<Block>(64 * megabyte); };
    const QtMessageHandler handler = qInstallMessageHandler(keepLine);
    lines.clear();

    CMemoryState_X before, after, difference;
    before.Checkpoint();
    work();
    after.Checkpoint();
    difference.Difference(before, after);
    difference.DumpStatistics();

    qInstallMessageHandler(handler);
    QCOMPARE(lines.size(), 1);
    QVERIFY(difference.virtualKB >= 60 * 1024);
}

XE_APPLESS_TEST(tst_MemoryState)
#include "tst_memorystate.moc"
