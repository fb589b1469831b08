#include "growth.h"

#include <QCoreApplication>
#include <QMutex>
#include <QSet>
#include <QStringList>
#include <QThread>
#include <private/qhooks_p.h>
#include <xehook.h>

#include <algorithm>
#include <malloc.h>

// What the address sanitizer has instead of the C library's own count.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes() __attribute__((weak));

namespace {

constexpr int fewestMoments = 12;
constexpr int fewestForBytes = 60;            // Qt's caches of letters and pictures fill up for minutes
constexpr long long smallChange = 256 * 1024; // bytes

QMutex mutex;
QSet<QObject*> objects;

void onMade(QObject* object)
{
    const QMutexLocker locker(&mutex);
    objects.insert(object);
}

void onGone(QObject* object)
{
    const QMutexLocker locker(&mutex);
    objects.remove(object);
}

template <class Function>
quintptr address(Function* function)
{
    return reinterpret_cast<quintptr>(function);
}

// Objects of other threads may be about to go.
QHash<const QMetaObject*, int> countClasses()
{
    const QMutexLocker locker(&mutex);
    QHash<const QMetaObject*, int> counts;
    for (const QObject* object : qAsConst(objects)) {
        if (object->thread() == QCoreApplication::instance()->thread())
            ++counts[object->metaObject()];
    }
    return counts;
}

long long bytesInUse()
{
    if (__sanitizer_get_current_allocated_bytes)
        return static_cast<long long>(__sanitizer_get_current_allocated_bytes());
    const struct mallinfo2 heap = mallinfo2();
    return static_cast<long long>(heap.uordblks + heap.hblkhd);
}

} // namespace

Growth::Growth()
{
    qtHookData[QHooks::AddQObject] = address(onMade);
    qtHookData[QHooks::RemoveQObject] = address(onGone);
}

Growth::~Growth()
{
    qtHookData[QHooks::AddQObject] = 0;
    qtHookData[QHooks::RemoveQObject] = 0;
}

void Growth::look()
{
    const long long bytes = bytesInUse();
    Moment moment{0, static_cast<int>(GetGlobalEventHandler()->timers.size()), bytes - m_ownBytes, countClasses()};
    for (const int count : qAsConst(moment.classes))
        moment.objects += count;
    m_moments += moment;
    m_ownBytes += bytesInUse() - bytes;
}

QString Growth::found() const
{
    const int count = m_moments.size();
    if (count < fewestMoments)
        return {};
    const auto least = [](auto first, auto last, auto member) {
        return *std::min_element(first, last, [=](const Moment& a, const Moment& b) { return a.*member < b.*member; });
    };
    const auto quarter = [&](int number) { return m_moments.begin() + count * number / 4; };
    const auto early = [&](auto member) { return least(quarter(1), quarter(2), member); };
    const auto late = [&](auto member) { return least(quarter(3), quarter(4), member); };

    QStringList grown;
    const int few = count / 8;
    const Moment before = early(&Moment::objects);
    const Moment after = late(&Moment::objects);
    int moreObjects = after.objects - before.objects;
    for (auto i = after.classes.begin(); i != after.classes.end(); ++i) {
        const int earlier = before.classes.value(i.key());
        if (earlier == 0 && i.value() == 1)
            --moreObjects; // a plugin or the like, which is made once and stays
        else if (i.value() > earlier)
            grown += QStringLiteral("%1 %2").arg(i.value() - earlier).arg(QLatin1String(i.key()->className()));
    }
    if (moreObjects > few)
        grown.prepend(QStringLiteral("%1 more objects").arg(moreObjects));
    else
        grown.clear();
    if (const int more = late(&Moment::timers).timers - early(&Moment::timers).timers; more > few)
        grown += QStringLiteral("%1 more timers").arg(more);
    if (const auto more = late(&Moment::bytes).bytes - early(&Moment::bytes).bytes;
        more > smallChange && count >= fewestForBytes)
        grown += QStringLiteral("%1 more bytes").arg(more);
    return grown.join(QLatin1String(", "));
}

QString Growth::summary() const
{
    if (m_moments.isEmpty())
        return {};
    const Moment& last = m_moments.constLast();
    return QStringLiteral("%1 moments, at the last one %2 objects, %3 timers, %4 bytes")
        .arg(m_moments.size())
        .arg(last.objects)
        .arg(last.timers)
        .arg(last.bytes);
}
