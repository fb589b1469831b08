#pragma once

#include <QApplication>
#include <QTest>

/// A test class among the others of its program.
///
/// The first argument of a test program names the class to run, the case of letters aside, and the others are QtTest's:
///
///     test_text tst_pathkinds -functions
///
/// Each class says at the end of its file what application it needs: XE_TEST a QApplication, XE_GUILESS_TEST a
/// QCoreApplication, XE_APPLESS_TEST none. XE_TEST_MAIN runs a main function of the class's own.
class TestClass
{
public:
    using Main = int (*)(int argc, char** argv);

    /// Registers a class for as long as the program runs.
    TestClass(const char* name, Main main);

    /// Runs the class that the arguments name; without one, tells the names and returns 2.
    static int run(int argc, char** argv);

private:
    static void printNames();

    static TestClass* first;

    const char* const m_name;
    const Main m_main;
    TestClass* const m_next;
};

struct NoApplication
{
    NoApplication(int&, char**) {}
};

template <typename Test, typename Application>
int runTestClass(int argc, char** argv)
{
    [[maybe_unused]] Application application(argc, argv);
    if constexpr (!std::is_same_v<Application, NoApplication>)
        application.setAttribute(Qt::AA_Use96Dpi);
    Test test;
    return QTest::qExec(&test, argc, argv);
}

#define XE_TEST_MAIN(Test, main) static const TestClass registration##Test(#Test, main);
#define XE_TEST(Test) XE_TEST_MAIN(Test, (runTestClass<Test, QApplication>))
#define XE_GUILESS_TEST(Test) XE_TEST_MAIN(Test, (runTestClass<Test, QCoreApplication>))
#define XE_APPLESS_TEST(Test) XE_TEST_MAIN(Test, (runTestClass<Test, NoApplication>))
