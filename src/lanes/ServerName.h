#pragma once

#include <string>
#include <string_view>

namespace korvanta {

// The server that a call about this name goes to, with ASCII letters in lower case. Empty for what is on this machine.

// "\\Srv\share\file" and "\\Srv\printer": "srv".
std::u16string ServerOfPath(std::u16string_view path);
// "http://Srv/file": "srv", with its port if it has one.
std::u16string ServerOfUrl(std::u16string_view url);

}  // namespace korvanta
