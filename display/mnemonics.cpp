// SPDX-License-Identifier: MIT
// The choice is a maximum matching of texts and letters, so that a text goes without only where none is left.
#include "display/mnemonics.h"

#include <map>

namespace {

char Key(QChar character) {
    const char16_t code = character.toLower().unicode();
    const bool typed = (code >= u'a' && code <= u'z') || (code >= u'0' && code <= u'9');
    return typed ? static_cast<char>(code) : '\0';
}

// The positions at which a text can have its mnemonic, best first, each letter once.
std::vector<int> Candidates(const QString& text) {
    std::vector<int> starts, others;
    std::set<char> seen{'\0'};
    for (int i = 0; i < text.size(); ++i)
        if ((i == 0 || !text[i - 1].isLetterOrNumber()) && seen.insert(Key(text[i])).second)
            starts.push_back(i);
    for (int i = 0; i < text.size(); ++i)
        if (seen.insert(Key(text[i])).second)
            others.push_back(i);
    starts.insert(starts.end(), others.begin(), others.end());
    return starts;
}

struct Matching {
    const std::vector<QString>& texts;
    const std::set<char>& used;
    std::map<char, int> owner{};  // of a letter: the text that has it
    std::vector<int> chosen = std::vector<int>(texts.size(), -1);

    bool Free(char key) const { return !used.contains(key) && !owner.contains(key); }

    void Give(int text, int position) {
        chosen[static_cast<std::size_t>(text)] = position;
        owner[Key(Word(text)[position])] = text;
    }

    // Gives `text` a letter: a free one, or else another's who can move to one.
    bool Place(int text, std::set<char>& tried) {
        const std::vector<int> candidates = Candidates(Word(text));
        for (const int position : candidates)
            if (Free(Key(Word(text)[position]))) {
                Give(text, position);
                return true;
            }
        for (const int position : candidates) {
            const char key = Key(Word(text)[position]);
            if (!used.contains(key) && tried.insert(key).second && Place(owner[key], tried)) {
                Give(text, position);
                return true;
            }
        }
        return false;
    }

    const QString& Word(int text) const { return texts[static_cast<std::size_t>(text)]; }
};

}  // namespace

std::vector<int> ChooseMnemonics(const std::vector<QString>& texts, std::set<char>& used) {
    Matching matching{texts, used};
    for (int i = 0; i < static_cast<int>(texts.size()); ++i) {
        std::set<char> tried;
        matching.Place(i, tried);
    }
    for (const auto& [key, text] : matching.owner)
        used.insert(key);
    return matching.chosen;
}
