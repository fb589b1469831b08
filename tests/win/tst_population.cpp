// A whole population of windows comes and goes, and leaves the memory as it was.

#include <XeMFCEmu.h>

#include <QtTest>

#include <malloc.h>

#include <memory>
#include <vector>

#if defined(__SANITIZE_ADDRESS__)
extern "C" size_t __sanitizer_get_current_allocated_bytes(); // gcc does not install the header that declares it
#endif

namespace {

constexpr int population = 100000;

qint64 allocatedBytes()
{
#if defined(__SANITIZE_ADDRESS__)
    return static_cast<qint64>(__sanitizer_get_current_allocated_bytes());
#else
    const auto info = mallinfo2();
    return static_cast<qint64>(info.uordblks + info.hblkhd);
#endif
}

void attachAndDetachAll(const std::vector<std::unique_ptr<QWidget>>& widgets)
{
    std::vector<std::unique_ptr<CWnd_X>> windows;
    for (const auto& widget : widgets) {
        windows.push_back(std::make_unique<CWnd_X>());
        QCOMPARE(windows.back()->SubclassWindow(widget.get()), 1);
    }
    for (const auto& window : windows)
        window->Detach();
}

} // namespace

class TestPopulation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void memoryIsBackWhereItWas()
    {
        std::vector<std::unique_ptr<QWidget>> widgets;
        for (int i = 0; i < population; ++i)
            widgets.push_back(std::make_unique<QWidget>());
        QCoreApplication::removePostedEvents(nullptr); // each widget that goes would search through them
        for (int i = 0; i < 2; ++i)
            attachAndDetachAll(widgets); // Qt's own lists of filters and properties grow to their size
        const qint64 before = allocatedBytes();
        attachAndDetachAll(widgets);
        attachAndDetachAll(widgets);
        const qint64 kept = allocatedBytes() - before;
        QVERIFY2(qAbs(kept) < population, qPrintable(QStringLiteral("%1 bytes kept").arg(kept)));
    }
};

QTEST_MAIN(TestPopulation)
#include "tst_population.moc"
