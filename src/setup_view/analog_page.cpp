#include "setup_view/analog_page.h"

#include <algorithm>

#include "meter/field_lists.h"
#include "meter/firmware.h"
#include "setup_view/setup_view.h"
#include "setup_view/source_list.h"

namespace counter {

namespace {

using Entries = std::span<const std::string_view>;

constexpr int kBipolarBoard = 3;
constexpr int kDualBoard = 4;
constexpr int kLastUnipolarRange = 2;
constexpr int kLastOwnDisplay = 5;
constexpr int kItem3 = 3;

}  // namespace

void AnalogPage::Wire() {
    const Binding kPlain[] = {
        {Range.Inner, Field::AnalogRange}, {Range2.Inner, Field::AnalogRange2},
        {AnaLo.Inner, Field::AnalogLo},    {AnaHi.Inner, Field::AnalogHi},
        {AnaLo2.Inner, Field::Analog2Lo},  {AnaHi2.Inner, Field::Analog2Hi},
    };
    Bind(kPlain);
    Controls().On(Source.Inner, [this](Control& list) {
        Put(Field::AnalogSource, SourceOfEntry(Values(), list.ListIndex));
        View.ViewRefresh();
    });
    // The entry's number is stored as it stands, though the list may begin with Item 1; the refresh repairs a
    // 0. So without a filtered item the second output stays on Item 1: required.
    Controls().On(Source2.Inner, [this](Control& list) {
        Put(Field::AnalogSource2, Values().DisplayType > kLastOwnDisplay ? kItem3 : list.ListIndex);
        View.ViewRefresh();
    });
}

bool AnalogPage::DualBoard() const {
    return Values().AnalogOption == kDualBoard && BipolarAnalogOffered(Meter().FirmwareVersion);
}

void AnalogPage::FillLists() {
    bool bipolar = Values().AnalogOption == kBipolarBoard && BipolarAnalogOffered(Meter().FirmwareVersion);
    Form::Fill(Range.Inner, Entries(lists::kAnalogRange).first(bipolar ? 4 : 3));
    Form::Fill(Range2.Inner, lists::kAnalogRange2);
    fraAnaOut2.Visible = DualBoard();
    std::string number = DualBoard() ? " 1" : "";
    fraAnaOut.Caption = "Analog Output" + number;
    Source.Frame.Caption = "Source" + number;
    AnaLo.Frame.Caption = "Lo Range Reading" + number;
    Range.Frame.Caption = "Range" + number;
    AnaHi.Frame.Caption = "Hi Range Reading" + number;
}

void AnalogPage::RefreshSourcesAndRanges() {
    RefreshSources(*this, Source.Inner, Field::AnalogSource);
    RefreshSources(*this, Source2.Inner, Field::AnalogSource2);
    ShowRanges();
}

// What only the bipolar board has is shown as the range below it; stored it stays.
void AnalogPage::ShowRanges() {
    int range = Stored(Field::AnalogRange);
    bool bipolar = Values().AnalogOption == kBipolarBoard;
    Controls().SetIndex(Range.Inner, bipolar ? range : std::min(range, kLastUnipolarRange));
    Show(Range2.Inner, Field::AnalogRange2);
}

void AnalogPage::RefreshReadings() {
    for (Field source : {Field::AnalogSource, Field::AnalogSource2})
        SettlePointOfSource(Values(), SourceInForce(Values(), Stored(source)));
    AnaLo.Inner.Text = TextOf(Field::AnalogLo);
    AnaHi.Inner.Text = TextOf(Field::AnalogHi);
    AnaLo2.Inner.Text = TextOf(Field::Analog2Lo);
    AnaHi2.Inner.Text = TextOf(Field::Analog2Hi);
}

}  // namespace counter
