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
    // Bytes of the longest response that is accepted: the byte-order mark and the longest text that TextInput reads.
    static constexpr std::size_t longestResponse = (1 + TextInput::longestText) * sizeof(char16_t);

    clsInet(FileSystem& files, Internet& internet, MessageLoop& messages, MessageBoxes& boxes, MessageTexts& texts);

    // The body of the response, byte for byte. When `path` is not empty the body is also written to the start of that
    // file, which is not truncated first; no messages run after that. A URL that cannot be opened has an empty body,
    // and a connection that breaks ends the body there. Any other failure gives the empty body; a message box tells the
    // user, but for error 52 "Bad file name or number". Raises only when there is no memory for the box.
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
