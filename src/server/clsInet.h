#pragma once

#include <cstdint>
#include <string>

#include "common/TextStream.h"
#include "controls/Event.h"
#include "platform/FileSystem.h"
#include "platform/Internet.h"
#include "platform/MessageBoxes.h"
#include "platform/MessageLoop.h"
#include "translation/MessageTexts.h"

namespace korvanta {

// Fetches web pages. Messages run between the pieces of a response, so handlers may fetch again meanwhile.
class clsInet {
  public:
    // Bytes of the longest response that is taken: the byte-order mark and the longest text that is ever read.
    static constexpr std::size_t longestResponse = (1 + TextInput::longestText) * sizeof(char16_t);

    clsInet(FileSystem& files, Internet& internet, MessageLoop& messages, MessageBoxes& boxes, MessageTexts& texts);

    // The body of the response, byte for byte; when `path` is not empty it is also written to that file, from its
    // start and without truncating it first, after the last message has run. A URL that cannot be opened has an empty
    // body, and a connection that breaks ends the body where it broke. Any other failure is told to the user in a
    // message box (error 52 "Bad file name or number" is not) and gives the empty body; raises only when there is no
    // memory left for the box.
    std::string GetURLSource(const std::u16string& url, const std::u16string& path);

    // After every read: the size of the read buffer and the number of bytes received so far.
    Event<std::int32_t, std::int32_t> BufferRead;

  private:
    std::string Receive(const std::u16string& url);
    void Store(const std::string& body, const std::u16string& path);

    FileSystem& files_;
    Internet& internet_;
    MessageLoop& messages_;
    MessageBoxes& boxes_;
    MessageTexts& texts_;
};

}  // namespace korvanta
