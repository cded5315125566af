#include "desktop/store_keeper.h"

namespace counter {

// The setup is told where it is known to be the meter's.
Status StoreKeeper::Begin() {
    RunFacts facts = FactsOf(program_.Settings);
    if (program_.Identity.SetupFromMeter) facts.Setup = program_.Image.SetupData;
    return recorder_.Begin(program_.Folder.At(kFile), facts);
}

std::string StoreKeeper::Words() const {
    if (recorder_.Run() == 0) return {};
    std::string words = recorder_.Recording() ? "Recording" : "Recorded";
    words += " run " + std::to_string(recorder_.Run()) + ": " + std::to_string(recorder_.Written()) +
             " readings in " + program_.Folder.At(kFile);
    if (recorder_.Trouble().Ok()) return words;
    return words + ". " + std::to_string(recorder_.Taken() - recorder_.Written()) +
           " wait: " + recorder_.Trouble().Text();
}

}  // namespace counter
