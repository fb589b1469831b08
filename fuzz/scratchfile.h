#pragma once

#include "check.h"

#include <xeafxstr.h>

#include <cstdlib>
#include <string>
#include <unistd.h>

/// A file for what a target is given, which goes with the program.
class ScratchFile
{
public:
    ScratchFile()
    {
        m_descriptor = mkstemp(m_name.data());
        check(m_descriptor >= 0, "there is a scratch file");
    }
    ~ScratchFile() { unlink(m_name.c_str()); }
    Q_DISABLE_COPY_MOVE(ScratchFile)

    CString_X name() const { return m_name.c_str(); }

    void fill(const std::string& content) const
    {
        check(ftruncate(m_descriptor, 0) == 0, "the scratch file is emptied");
        const auto length = static_cast<ssize_t>(content.size());
        check(pwrite(m_descriptor, content.data(), content.size(), 0) == length, "the scratch file is filled");
    }

private:
    int m_descriptor = -1;
    std::string m_name = "/tmp/xefuzz-" + std::string(6, 'X'); // mkstemp() puts other letters in their place
};
