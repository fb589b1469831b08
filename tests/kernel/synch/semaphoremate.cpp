#include <xesynchapi.h>

#include <string>

// The other process of tst_semaphoreprocess: does what its arguments say to the semaphore that the first one names.
// Gives 0 when each step had its expected outcome, else the number of the step that had not.
int main(int count, char** arguments)
{
    const std::string text = count > 1 ? arguments[1] : "";
    const std::wstring name(text.begin(), text.end());
    const HANDLE semaphore = CreateSemaphore(nullptr, 0, 9, name.c_str());
    for (int i = 2; i < count; ++i) {
        const std::string step = arguments[i];
        const bool done = step == "take"      ? WaitForSingleObject(semaphore, 60000) == WAIT_OBJECT_0
                          : step == "nothing" ? WaitForSingleObject(semaphore, 0) == WAIT_TIMEOUT
                          : step == "give"    ? ReleaseSemaphore(semaphore, 1, nullptr) != 0
                          : step == "close"   ? XeCloseHandle(semaphore) != 0
                                              : false;
        if (!done)
            return i - 1;
    }
}
