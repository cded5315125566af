#include "setup_view/analog_page.h"

#include <algorithm>

#include "meter/field_lists.h"
#include "meter/firmware.h"
#include "meter/meter_words.h"
#include "setup_view/setup_view.h"

namespace counter {

namespace {

using Entries = std::span<const std::string_view>;

constexpr int kLastUnipolarRange = 2;

}  // namespace

void AnalogPage::Wire() {
    const Binding kPlain[] = {
        {Range.Inner, Field::AnalogRange}, {Range2.Inner, Field::AnalogRange2},
        {AnaLo.Inner, Field::AnalogLo},    {AnaHi.Inner, Field::AnalogHi},
        {AnaLo2.Inner, Field::Analog2Lo},  {AnaHi2.Inner, Field::Analog2Hi},
    };
    Bind(kPlain);
    Bind({Source.Inner, Field::AnalogSource}, [this](Control& list) {
        PutCode(Image(), Field::AnalogSource, SourceOfEntry(list.ListIndex));
        View.ViewRefresh();
    });
    // The entry's number is stored as it is, though the list may begin with Item 1; the refresh repairs a
    // 0. So without a filtered item the second output stays on Item 1: required.
    Bind({Source2.Inner, Field::AnalogSource2}, [this](Control& list) {
        PutCode(Image(), Field::AnalogSource2,
                IsRemoteDisplay(Values().DisplayType) ? Source::Item3 : list.ListIndex);
        View.ViewRefresh();
    });
}

bool AnalogPage::DualBoard() const {
    return Values().AnalogOption == AnalogBoard::Dual16Bit && BipolarAnalogOffered(Meter().FirmwareVersion);
}

void AnalogPage::FollowBoard() {
    SetupView::Quiet quiet(View);
    bool bipolar =
        Values().AnalogOption == AnalogBoard::Bipolar16Bit && BipolarAnalogOffered(Meter().FirmwareVersion);
    Form::Fill(Range.Inner, Entries(lists::kAnalogRange).first(bipolar ? 4 : 3));
    Form::Fill(Range2.Inner, lists::kAnalogRange2);
    ShowRanges();
    fraAnaOut.Visible = Values().AnalogOption != AnalogBoard::None;
    fraAnaOut2.Visible = DualBoard();
    std::string number = DualBoard() ? " 1" : "";
    fraAnaOut.Caption = "Analog Output" + number;
    Source.Frame.Caption = "Source" + number;
    AnaLo.Frame.Caption = "Lo Range Reading" + number;
    Range.Frame.Caption = "Range" + number;
    AnaHi.Frame.Caption = "Hi Range Reading" + number;
}

void AnalogPage::RefreshSourcesAndRanges() {
    RefreshSources(Source.Inner, Field::AnalogSource);
    RefreshSources(Source2.Inner, Field::AnalogSource2);
    ShowRanges();
}

// What only the bipolar board has is shown as the range below it; stored it stays.
void AnalogPage::ShowRanges() {
    int range = CodeOf(Image(), Field::AnalogRange);
    bool bipolar = Values().AnalogOption == AnalogBoard::Bipolar16Bit;
    Controls().SetIndex(Range.Inner, bipolar ? range : std::min(range, kLastUnipolarRange));
    Show(Range2.Inner, Field::AnalogRange2);
}

void AnalogPage::RefreshReadings() {
    for (Field source : {Field::AnalogSource, Field::AnalogSource2})
        SettlePointOfSource(Values(), SourceInForce(Values(), CodeOf(Image(), source)));
    AnaLo.Inner.Text = TextOf(Field::AnalogLo);
    AnaHi.Inner.Text = TextOf(Field::AnalogHi);
    AnaLo2.Inner.Text = TextOf(Field::Analog2Lo);
    AnaHi2.Inner.Text = TextOf(Field::Analog2Hi);
}

}  // namespace counter
