#include "PropertiesForm.h"

namespace {

const char* const kLabels[] = {"Width", "Height", "Red", "Green", "Blue"};
const size_t kMaximumDigits = 9;  // keeps every typed number within an int

}  // namespace

PropertiesForm::PropertiesForm(const LevelDocument& document)
    : fields{std::to_string(document.width), std::to_string(document.height), std::to_string(document.red),
             std::to_string(document.green), std::to_string(document.blue)} {}

PropertiesForm::Outcome PropertiesForm::handleKey(int scancode, int ascii) {
    std::string& field = fields[focused];
    if (scancode == KEY_ESC) {
        return FORM_CANCEL;
    }
    if (scancode == KEY_ENTER || scancode == KEY_ENTER_PAD) {
        return FORM_APPLY;
    }
    if (scancode == KEY_UP) {
        focused = (focused + fields.size() - 1) % fields.size();
    } else if (scancode == KEY_DOWN || scancode == KEY_TAB) {
        focused = (focused + 1) % fields.size();
    } else if (scancode == KEY_BACKSPACE && !field.empty()) {
        field.pop_back();
    } else if (ascii >= '0' && ascii <= '9' && field.size() < kMaximumDigits) {
        field += static_cast<char>(ascii);
    } else if (scancode == KEY_L) {
        atLeft = !atLeft;
    } else if (scancode == KEY_T) {
        atTop = !atTop;
    }
    return FORM_OPEN;
}

LevelProperties PropertiesForm::getProperties() const {
    std::array<int, 5> numbers{};
    for (size_t i = 0; i < fields.size(); ++i) {
        numbers[i] = fields[i].empty() ? 0 : std::stoi(fields[i]);
    }
    return {numbers[0], numbers[1], numbers[2], numbers[3], numbers[4]};
}

void PropertiesForm::draw(BITMAP* target) const {
    const int width = 420;
    const int height = 200;
    const int left = (target->w - width) / 2;
    const int top = (target->h - height) / 2;
    const int text = makecol(235, 235, 235);
    rectfill(target, left, top, left + width, top + height, makecol(30, 32, 40));
    rect(target, left, top, left + width, top + height, makecol(255, 230, 0));
    textout_ex(target, font, "Level properties", left + 12, top + 10, makecol(255, 230, 0), -1);
    for (size_t i = 0; i < fields.size(); ++i) {
        const int y = top + 34 + static_cast<int>(i) * 18;
        if (i == focused) {
            rectfill(target, left + 8, y - 4, left + width - 8, y + 11, makecol(70, 90, 150));
        }
        textout_ex(target, font, kLabels[i], left + 16, y, text, -1);
        textout_ex(target, font, (fields[i] + (i == focused ? "_" : "")).c_str(), left + 100, y, text, -1);
    }
    const LevelProperties shown = getProperties();
    rectfill(target, left + 330, top + 34, left + 400, top + 114,
             makecol(shown.red, shown.green, shown.blue));
    textout_ex(target, font,
               atLeft ? "L: size changes at the LEFT edge" : "L: size changes at the right edge", left + 16,
               top + 130, text, -1);
    textout_ex(target, font, atTop ? "T: size changes at the TOP edge" : "T: size changes at the bottom edge",
               left + 16, top + 146, text, -1);
    textout_ex(target, font, "Enter applies, Esc cancels", left + 16, top + 168, makecol(160, 160, 170), -1);
    textout_ex(target, font, error.c_str(), left + 16, top + 184, makecol(255, 120, 90), -1);
}
