#include "ui/Measures.h"

#include <algorithm>

namespace korvanta {

namespace {
constexpr int lineRoom = 30;    // above and below a line of text
constexpr int fieldRoom = 105;  // what a field's edges add to its line
constexpr int smallestButton = 1260;
constexpr int buttonRoom = 300;  // around its caption
constexpr std::size_t longestButton = 35;
}  // namespace

int Measures::LineHeight() const {
    return std::max(textMeasure_.LineHeight(false), textMeasure_.LineHeight(true)) + lineRoom;
}

int Measures::FieldHeight() const {
    return LineHeight() + fieldRoom;
}

int Measures::CaptionWidth(const Label& label, std::size_t longest) const {
    return std::min(textMeasure_.Width(label.Caption(), label.Bold()), textMeasure_.LettersWidth(longest)) + slack;
}

int Measures::ButtonWidth(const CommandButton& one, const CommandButton& other) const {
    const int longer =
        std::max(textMeasure_.Width(one.Caption(), false), textMeasure_.Width(other.Caption(), false)) + buttonRoom;
    return std::max(std::min(longer, textMeasure_.LettersWidth(longestButton)), smallestButton);
}

void Measures::PlaceButtons(CommandButton& first, CommandButton& second, int right, int top) const {
    const int width = ButtonWidth(first, second);
    const int height = FieldHeight();
    second.Move({right - width, top, width, height});
    first.Move({right - 2 * width - gap, top, width, height});
}

}  // namespace korvanta
