#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korvanta {

// The parts of a full printer name, "\\server\printer". The servers publish full names unchecked, so two readings of
// the server are needed: they differ for names such as "\\server\\printer" and "server\printer".
class PrinterName {
  public:
    explicit PrinterName(std::u16string_view fullName);

    // The full name of a printer that `serverName` publishes: what holds a "\" is one already.
    static std::u16string Published(std::u16string_view serverName, std::u16string_view printer);

    // Every "\\" pair is removed; the server is then what stands before the first "\". None without a "\".
    const std::optional<std::u16string>& Server() const { return server_; }
    // What stands behind that "\"; without one, all that remains.
    const std::u16string& ShortName() const { return shortName_; }

    // The first two characters are skipped, whatever they are; the server ends before the next "\". None without a "\"
    // there.
    std::optional<std::u16string> ServerFromThirdCharacter() const;

  private:
    std::u16string fullName_;
    std::optional<std::u16string> server_;
    std::u16string shortName_;
};

}  // namespace korvanta
