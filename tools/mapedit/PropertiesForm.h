#pragma once

#include <allegro.h>

#include <array>
#include <string>

#include "MapEditor.h"

// The level's properties as a form over the view: width, height and background colour typed as
// numbers, and at which edges a change of size takes effect.
class PropertiesForm {
  public:
    enum Outcome { FORM_OPEN, FORM_APPLY, FORM_CANCEL };

    explicit PropertiesForm(const LevelDocument& document);

    // Up, Down and Tab move between the fields; digits and Backspace edit one; L and T choose
    // the edges; Enter applies, Esc cancels.
    Outcome handleKey(int scancode, int ascii);
    // Fields left empty read as 0.
    LevelProperties getProperties() const;
    bool isAtLeft() const { return atLeft; }
    bool isAtTop() const { return atTop; }
    void setError(const std::string& text) { error = text; }

    void draw(BITMAP* target) const;

  private:
    std::array<std::string, 5> fields;  // width, height, red, green, blue
    size_t focused = 0;
    bool atLeft = false;
    bool atTop = false;
    std::string error;
};
