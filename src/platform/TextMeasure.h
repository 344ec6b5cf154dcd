#pragma once

#include <cstddef>
#include <string>

namespace korvanta {

// The room that texts take in the font of the program's windows. All lengths are twips (1440 to the inch).
class TextMeasure {
  public:
    virtual ~TextMeasure() = default;
    // Width of one line; an "&" that marks an access key takes no room.
    virtual int Width(const std::u16string& caption, bool bold) = 0;
    // Width of so many letters of average width: a limit for captions that must not widen a form without end.
    int LettersWidth(std::size_t letters) { return Width(std::u16string(letters, u'n'), false); }
    // Height of one line.
    virtual int LineHeight(bool bold) = 0;
};

}  // namespace korvanta
