#include "testclass.h"

#include <cstdio>

TestClass* TestClass::first = nullptr;

TestClass::TestClass(const char* name, Main main) : m_name(name), m_main(main), m_next(first) { first = this; }

int TestClass::run(int argc, char** argv)
{
    for (const TestClass* candidate = first; argc > 1 && candidate; candidate = candidate->m_next) {
        if (qstricmp(candidate->m_name, argv[1]) == 0) {
            argv[1] = argv[0];
            return candidate->m_main(argc - 1, argv + 1);
        }
    }
    printNames();
    return 2;
}

void TestClass::printNames()
{
    std::puts("The first argument is one of the test classes");
    for (const TestClass* test = first; test; test = test->m_next)
        std::puts(test->m_name);
}

int main(int argc, char** argv) { return TestClass::run(argc, argv); }
