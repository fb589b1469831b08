#pragma once

#include <vector>

namespace xe {

/// The X11 keysyms that count as a VK code, null for a code without any.
const std::vector<unsigned long>* keysymsOf(int vk);

} // namespace xe
