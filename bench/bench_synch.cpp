// What waits cost beside the bare pthread calls.

#include <XeMFCEmu.h>

#include <benchmark/benchmark.h>

#include <atomic>
#include <chrono>
#include <pthread.h>
#include <thread>

namespace {

// ----------------------------------------------------------------------------------------- ping-pong of two threads

/// An auto-reset event beside the caller's own condition. A set that falls between a waiter's look at the state and its
/// sleep wakes nobody; nudge() mends that, and the condition tells a nudge from a set.
class Event
{
public:
    explicit Event(const wchar_t* name) : m_handle(CreateEvent(nullptr, 0, 0, name)) {}
    ~Event() { XeCloseHandle(m_handle); }
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    void set()
    {
        m_set = true;
        SetEvent(m_handle);
    }
    void wait()
    {
        do
            WaitForSingleObject(m_handle, INFINITE);
        while (!m_set.exchange(false));
    }
    void nudge() { SetEvent(m_handle); }

private:
    HANDLE m_handle;
    std::atomic<bool> m_set = false;
};

/// The same by hand, where no set is lost.
class Condition
{
public:
    explicit Condition(const wchar_t*) {}
    ~Condition()
    {
        pthread_cond_destroy(&m_condition);
        pthread_mutex_destroy(&m_mutex);
    }
    Condition(const Condition&) = delete;
    Condition& operator=(const Condition&) = delete;

    void set()
    {
        pthread_mutex_lock(&m_mutex);
        m_set = true;
        pthread_mutex_unlock(&m_mutex);
        pthread_cond_signal(&m_condition);
    }
    void wait()
    {
        pthread_mutex_lock(&m_mutex);
        while (!m_set)
            pthread_cond_wait(&m_condition, &m_mutex);
        m_set = false;
        pthread_mutex_unlock(&m_mutex);
    }
    void nudge() {}

private:
    pthread_mutex_t m_mutex = PTHREAD_MUTEX_INITIALIZER;
    pthread_cond_t m_condition = PTHREAD_COND_INITIALIZER;
    bool m_set = false;
};

template <class Signal>
void pingPong(benchmark::State& state)
{
    Signal ping(L"ping");
    Signal pong(L"pong");
    std::atomic<bool> over = false;
    std::thread partner([&] {
        while (true) {
            ping.wait();
            if (over)
                return;
            pong.set();
        }
    });
    std::atomic<long> rounds = 0;
    std::atomic<bool> isWatched = true;
    std::thread watchdog([&] {
        for (long before = -1; isWatched;) {
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
            if (before == rounds) {
                ping.nudge();
                pong.nudge();
            }
            before = rounds;
        }
    });
    for (auto _ : state) {
        ping.set();
        pong.wait();
        ++rounds;
    }
    over = true;
    ping.set();
    partner.join();
    isWatched = false;
    watchdog.join();
}

// ------------------------------------------------------------------------------------------------ a mutex nobody wants

void mutex(benchmark::State& state)
{
    const HANDLE handle = CreateMutex(nullptr, 0, L"alone");
    for (auto _ : state) {
        benchmark::DoNotOptimize(WaitForSingleObject(handle, INFINITE));
        benchmark::DoNotOptimize(ReleaseMutex(handle));
    }
    XeCloseHandle(handle);
}

void pthreadMutex(benchmark::State& state)
{
    pthread_mutex_t bare;
    pthread_mutex_init(&bare, nullptr);
    for (auto _ : state) {
        benchmark::DoNotOptimize(pthread_mutex_lock(&bare));
        benchmark::DoNotOptimize(pthread_mutex_unlock(&bare));
    }
    pthread_mutex_destroy(&bare);
}

} // namespace

BENCHMARK(pingPong<Event>)->Name("event_ping_pong/ours")->UseRealTime();
BENCHMARK(pingPong<Condition>)->Name("event_ping_pong/peer:condition_variable")->UseRealTime();
BENCHMARK(mutex)->Name("mutex/ours");
BENCHMARK(pthreadMutex)->Name("mutex/peer:pthread_mutex");
