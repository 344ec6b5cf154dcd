#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/Control.h"

namespace korvanta {

// A text of a form that a translation may replace.
struct FormText {
    // The text's key in a catalogue: the form's name for the form's caption, "form.control" for a control's, and
    // "form.control.1" for its first tab. A control inside a control that is put together from others is
    // "form.outer.inner".
    std::u16string key;
    std::u16string text;
    // Valid while the form lives.
    std::function<void(const std::u16string&)> replace;
    // Whether an "&" in it marks an access key of the form.
    bool marksAccessKey = false;
};

// The texts of a form, or of a control that is translated by itself, in tab order: without empty texts, text boxes, and
// labels that show data.
std::vector<FormText> TextsOf(Container& owner);

// Removes the access key from each text of the form that has the same one as an earlier text: with two, Windows would
// only move the focus between the controls and press neither. Gives the keys (FormText) of these texts.
std::vector<std::u16string> DropRepeatedAccessKeys(Container& form);

}  // namespace korvanta
