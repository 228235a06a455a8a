#pragma once

#include <allegro.h>

#include <functional>
#include <string>

// A question in the status line that holds every key until it is answered: a line of text to
// type (Enter takes it, Esc drops it) or a choice among the keys its question names.
class EditorPrompt {
  public:
    // Called with the key chosen (lower case; Enter for typed text) and the text typed.
    using Answer = std::function<void(char key, const std::string& text)>;

    // A choice: `keys` are the accepted answers (such as "ync"); Esc answers the last one.
    static EditorPrompt choice(const std::string& question, const std::string& keys, Answer answer);
    static EditorPrompt text(const std::string& question, const std::string& initial, Answer answer);

    // False once answered or dropped.
    bool isOpen() const { return open; }
    // Takes a key from readkey(); may answer.
    void handleKey(int scancode, int ascii);
    void draw(BITMAP* target, int x, int y) const;

  private:
    EditorPrompt(const std::string& question, const std::string& keys, const std::string& text, Answer answer)
        : question(question), keys(keys), typed(text), answer(std::move(answer)) {}
    void finish(char key);

    std::string question;
    std::string keys;  // empty for a typed answer
    std::string typed;
    Answer answer;
    bool open = true;
};
