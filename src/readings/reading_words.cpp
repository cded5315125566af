#include "readings/reading_words.h"

#include <cmath>
#include <cstdio>

namespace counter {

namespace {

constexpr double kLongest = 1e9;  // larger numbers would leave their places

std::string Figure(double value, int decimals) {
    char text[64];
    if (std::abs(value) < kLongest)
        std::snprintf(text, sizeof text, "%.*f", decimals, value);
    else
        std::snprintf(text, sizeof text, "%.4g", value);
    return text;
}

// A slow meter has few readings in a second, and differs in the decimals.
std::string RateText(double rate) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*f/s", rate < 1 ? 3 : 1, rate);
    return text;
}

std::string StateText(const ReadingView& view, RunState state) {
    if (state != RunState::Silent) return std::string(WordOf(state));
    return "No reading for " + std::to_string(view.Statistics.SilentSeconds(view.Program.Pump.NowMs())) +
           " s";
}

void AddFigures(ReadingWords& words, const ItemFigures& figures) {
    words.Current = words.Smallest = words.Largest = words.Mean = words.Deviation = "-";
    if (figures.Shows) words.Current = Figure(figures.Current, figures.Decimals);
    if (figures.Count == 0) return;
    words.Smallest = Figure(figures.Smallest, figures.Decimals);
    words.Largest = Figure(figures.Largest, figures.Decimals);
    words.Mean = Figure(figures.Mean, figures.Decimals + 1);
    if (figures.Count > 1) words.Deviation = Figure(figures.Deviation(), figures.Decimals + 1);
}

void Append(std::string& sentence, const char* caption, const std::string& text) {
    if (text.empty()) return;
    sentence += std::string(sentence.empty() ? "" : ", ") + caption + text;
}

}  // namespace

ReadingWords WordsOf(const ReadingView& view) {
    const ReadingStatistics& statistics = view.Statistics;
    const RunState state = view.State();
    ReadingWords words;
    words.State = StateText(view, state);
    if (state == RunState::Running && statistics.Rate() > 0) words.Rate = RateText(statistics.Rate());
    words.Count = std::to_string(statistics.Of(view.Item).Count);
    if (view.HasBars())
        words.Outside = std::to_string(statistics.Below) + " / " + std::to_string(statistics.Above);
    AddFigures(words, statistics.Of(view.Item));
    return words;
}

std::string Sentence(const ReadingWords& words) {
    std::string sentence;
    Append(sentence, "", words.State);
    Append(sentence, "", words.Rate);
    Append(sentence, "current ", words.Current);
    Append(sentence, "min ", words.Smallest);
    Append(sentence, "max ", words.Largest);
    Append(sentence, "mean ", words.Mean);
    Append(sentence, "s ", words.Deviation);
    Append(sentence, "n ", words.Count);
    Append(sentence, "outside ", words.Outside);
    return sentence;
}

}  // namespace counter
