#pragma once

#include <vector>

/// The X11 keysyms that count as a VK code, null for a code without any.
const std::vector<unsigned long>* keysymsOf(int vk);
