#include "xeafxdump.h"

#include <QDebug>

#include <cstdlib>
#include <fstream>
#include <string>

#include <unistd.h>

void CMemoryState_X::Checkpoint()
{
    // By strtoll, not std::stoi: address spaces above 2 TB exist, and no text makes it throw.
    const auto read = [](const std::string& line, const char* name, long long& field) {
        const auto tab = line.find('\t');
        if (tab != std::string::npos && line.find(name) != std::string::npos)
            field = std::strtoll(line.c_str() + tab, nullptr, 10);
    };
    std::ifstream status("/proc/" + std::to_string(getpid()) + "/status");
    for (std::string line; std::getline(status, line);) {
        read(line, "VmRSS:", physicalKB);
        read(line, "VmSize:", virtualKB);
    }
}

BOOL CMemoryState_X::Difference(const CMemoryState_X& oldState, const CMemoryState_X& newState)
{
    physicalKB = newState.physicalKB - oldState.physicalKB;
    virtualKB = newState.virtualKB - oldState.virtualKB;
    return 1;
}

void CMemoryState_X::DumpStatistics() const
{
    qDebug() << "Physical Memory changed: " << physicalKB << " KB. "
             << "Virtual Memory changed: " << virtualKB << " KB.";
}
