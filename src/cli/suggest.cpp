#include "cli/suggest.h"

#include <algorithm>
#include <vector>

#include "meter/text.h"

namespace counter {

namespace {

constexpr std::size_t kMostSuggestions = 4;  // setpoints and alarms come in fours
// Shorter words begin too many names.
constexpr std::size_t kShortestBeginning = 3;

// A third of the letters may be wrong: more would suggest names that have nothing to do with the word.
int MostWrong(std::string_view word) {
    return std::max(1, static_cast<int>(word.size()) / 3);
}

bool Begins(std::string_view name, std::string_view word) {
    return word.size() >= kShortestBeginning && SmallLetters(name).starts_with(SmallLetters(word));
}

std::string Listed(const std::vector<std::string>& names) {
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i) {
        text += (i == 0 ? "'" : i + 1 == names.size() ? " or '" : ", '") + names[i] + "'";
    }
    return text;
}

}  // namespace

int TypingDistance(std::string_view first, std::string_view second) {
    const std::string a = SmallLetters(first);
    const std::string b = SmallLetters(second);
    // Row i holds the distances of the first i letters of a from every beginning of b.
    std::vector<std::vector<int>> rows(a.size() + 1, std::vector<int>(b.size() + 1));
    for (std::size_t i = 0; i <= a.size(); ++i) {
        for (std::size_t j = 0; j <= b.size(); ++j) {
            if (i == 0 || j == 0) {
                rows[i][j] = static_cast<int>(i + j);
                continue;
            }
            const int changed = a[i - 1] == b[j - 1] ? 0 : 1;
            rows[i][j] = std::min({rows[i - 1][j] + 1, rows[i][j - 1] + 1, rows[i - 1][j - 1] + changed});
            const bool swapped = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
            if (swapped) rows[i][j] = std::min(rows[i][j], rows[i - 2][j - 2] + 1);
        }
    }
    return rows[a.size()][b.size()];
}

std::string DidYouMean(std::string_view word, std::span<const std::string> names) {
    std::vector<std::string> nearest;
    int least = MostWrong(word);
    for (const std::string& name : names) {
        const int distance = Begins(name, word) ? 1 : TypingDistance(word, name);
        if (distance > least) continue;
        if (distance < least) nearest.clear();
        least = distance;
        if (nearest.size() < kMostSuggestions) nearest.push_back(name);
    }
    return nearest.empty() ? std::string() : "; did you mean " + Listed(nearest) + "?";
}

}  // namespace counter
