#pragma once

#include <string>
#include <vector>

#include "common/Services.h"

namespace korvanta::fakes {

class FakeErrorReports : public ErrorReports {
  public:
    std::vector<std::u16string> messages;

    void Message(const std::u16string& message) override { messages.push_back(message); }
};

}  // namespace korvanta::fakes
