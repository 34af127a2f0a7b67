// SPDX-License-Identifier: MIT
// The choice is a maximum matching of texts and letters: as many texts as possible get a letter.
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
    std::map<char, int> owner{};  // the text that has the letter
    std::vector<int> chosen = std::vector<int>(texts.size(), -1);

    bool IsFree(char key) const { return !used.contains(key) && !owner.contains(key); }

    void Assign(int text, int position) {
        chosen[static_cast<std::size_t>(text)] = position;
        owner[Key(Text(text)[position])] = text;
    }

    // Gives `text` a free letter, or else the letter of a text that can move to another. `tried` holds the
    // letters that were asked for already.
    bool FindLetter(int text, std::set<char>& tried) {
        const std::vector<int> candidates = Candidates(Text(text));
        for (const int position : candidates)
            if (IsFree(Key(Text(text)[position]))) {
                Assign(text, position);
                return true;
            }
        for (const int position : candidates) {
            const char key = Key(Text(text)[position]);
            if (!used.contains(key) && tried.insert(key).second && FindLetter(owner[key], tried)) {
                Assign(text, position);
                return true;
            }
        }
        return false;
    }

    const QString& Text(int text) const { return texts[static_cast<std::size_t>(text)]; }
};

}  // namespace

std::vector<int> ChooseMnemonics(const std::vector<QString>& texts, std::set<char>& used) {
    Matching matching{texts, used};
    for (int i = 0; i < static_cast<int>(texts.size()); ++i) {
        std::set<char> tried;
        matching.FindLetter(i, tried);
    }
    for (const auto& [key, text] : matching.owner)
        used.insert(key);
    return matching.chosen;
}
