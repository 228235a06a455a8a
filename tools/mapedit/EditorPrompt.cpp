#include "EditorPrompt.h"

#include <cctype>

EditorPrompt EditorPrompt::choice(const std::string& question, const std::string& keys, Answer answer) {
    return EditorPrompt(question, keys, "", std::move(answer));
}

EditorPrompt EditorPrompt::text(const std::string& question, const std::string& initial, Answer answer) {
    return EditorPrompt(question, "", initial, std::move(answer));
}

void EditorPrompt::finish(char key) {
    open = false;
    // The answer may open the next prompt in this one's place: it is called last.
    Answer call = std::move(answer);
    call(key, typed);
}

void EditorPrompt::handleKey(int scancode, int ascii) {
    if (!keys.empty()) {
        const char key = static_cast<char>(std::tolower(ascii));
        if (scancode == KEY_ESC) {
            finish(keys.back());
        } else if (key != 0 && keys.find(key) != std::string::npos) {
            finish(key);
        }
        return;
    }
    if (scancode == KEY_ESC) {
        open = false;
    } else if (scancode == KEY_ENTER || scancode == KEY_ENTER_PAD) {
        finish('\n');
    } else if (scancode == KEY_BACKSPACE) {
        if (!typed.empty()) {
            typed.pop_back();
        }
    } else if (ascii > ' ' && ascii < 127) {
        typed += static_cast<char>(ascii);
    }
}

void EditorPrompt::draw(BITMAP* target, int x, int y) const {
    const std::string line = keys.empty() ? question + " " + typed + "_" : question;
    const int width = text_length(font, line.c_str());
    rectfill(target, x - 4, y - 3, x + width + 4, y + 10, makecol(200, 60, 40));
    textout_ex(target, font, line.c_str(), x, y, makecol(255, 255, 255), -1);
}
