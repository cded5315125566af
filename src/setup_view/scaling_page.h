// The scaling page: how a raw reading becomes a displayed value, in frames of one to three items.
//
// Every array is by layout 0 to 3 of the item frames; a layout shows its own elements alone.
//
//   layout  first item                        second item                       third item
//   0       group 1, slope A, curve,          group 2, slope B (element 4)      -
//           Read 0 In, root, slope B
//   1       group 2, slope B                  group 1, slope A, curve,          -
//                                             Read 0 In, root
//   2       Resolution, point 2, root         group 1 without point, slope A    group 2 with point 1, slope B
//   3       batch, group 1                    Resolution                        group 2, slopes, root
#pragma once

#include <string>

#include "setup_view/page.h"
#include "setup_view/tabs.h"

namespace counter {

// Where each field of a scaling group is stored.
struct GroupFields {
    Field Scale, Mult, Offset, LoIn, LoRd, HiIn, HiRd, Form;
};

// The controls of group 1 or 2 in each layout: Scale with Multiplier and Offset, or two coordinates.
struct ScalingGroup {
    ScalingGroup(PageBuilder& build, const ControlArray<4>& places, char number, const GroupFields& fields);

    GroupFields Fields;
    ControlArray<4> optScale;
    FramedArray<4> Scale;
    FramedArray<4> Mult;
    FramedArray<4> Offset;
    ControlArray<4> optCoord;
    FramedArray<4> LoIn;
    FramedArray<4> LoRd;
    FramedArray<4> HiIn;
    FramedArray<4> HiRd;
};

struct ScalingPage : Page {
    explicit ScalingPage(SetupView& view);

    static constexpr int kLevels = 4;
    static constexpr int kSecondItemSlopeB = 4;  // layout 0 has two: element 0 in its first item, and this
    using Places = ControlArray<kLevels>;

    // clang-format off
    Places fraItem1 = Build.AddRange<kLevels>(ControlKind::Frame, 0, 3, "fraItem1", "Item 1");
    Places lblItem1 = Build.AddEach(ControlKind::Label, fraItem1, "lblItem1");
    Places fraItem2 = Build.AddRange<kLevels>(ControlKind::Frame, 0, 3, "fraItem2", "Item 2");
    Places lblItem2 = Build.AddEach(ControlKind::Label, fraItem2, "lblItem2");
    Places fraItem3 = Build.AddRange<kLevels>(ControlKind::Frame, 2, 3, "fraItem3", "Item 3");
    Places lblItem3 = Build.AddEach(ControlKind::Label, fraItem3, "lblItem3");

    FramedArray<kLevels> DecPt1  = List({&fraItem1[0], &fraItem2[1], &fraItem3[2], &fraItem1[3]}, "cboDecPt1",  "Decimal Point 1");
    FramedArray<kLevels> DecPt2  = List({&fraItem2[0], &fraItem1[1], &fraItem1[2], &fraItem3[3]}, "cboDecPt2",  "Decimal Point 2");
    FramedArray<kLevels> Resoln  = List({nullptr,      nullptr,      &fraItem1[2], &fraItem2[3]}, "cboResoln",  "Resolution");
    FramedArray<kLevels> CusCrv  = List({&fraItem1[0], &fraItem2[1], nullptr,      nullptr     }, "cboCusCrv",  "Custom Curve");
    FramedArray<kLevels> TrigSlpA = List({&fraItem1[0], &fraItem2[1], &fraItem2[2], &fraItem3[3]}, "cboTrigSlpA", "Trigger Slope A");
    FramedArray<5>       TrigSlpB = Build.WrapEach<5>(ControlKind::List,
                                    {{&fraItem1[0], &fraItem1[1], &fraItem3[2], &fraItem3[3], &fraItem2[0]}}, "cboTrigSlpB", "Trigger Slope B");
    FramedArray<kLevels> Rd0In   = Build.WrapEach<kLevels>(ControlKind::Value, {{&fraItem1[0], &fraItem2[1], nullptr, nullptr}}, "txtRd0In", "Read 0 In");
    Places chkSqRt               = Build.AddEach<kLevels>(ControlKind::Check, {{&fraItem1[0], &fraItem2[1], &fraItem1[2], &fraItem3[3]}}, "chkSqRt", "Square Root");

    Framed BatCount = Build.Wrap(ControlKind::List, &fraItem1[3], "cboBatCount", "Batch Count");
    Framed BatReset = Build.Wrap(ControlKind::List, &fraItem1[3], "cboBatReset", "Batch Total Reset");
    Framed BatItm2  = Build.Wrap(ControlKind::List, &fraItem1[3], "cboBatItm2",  "Batch Item 2");
    Framed BatStart = Build.Wrap(ControlKind::List, &fraItem1[3], "cboBatStart", "Batch Start ");
    // clang-format on

    ScalingGroup Group1;
    ScalingGroup Group2;

    void Wire();

    // item_frames.cpp: the frames of a mode word; one level 0..3 of them with 1..3 items, which count 4
    // hides.
    void HideAll();
    void FrameUpdate(int modeWord);
    void FraItemVisibility(int level, int count);
    void BatchFill();
    void RefreshBatchCount();

    // scaling_page.cpp
    void ScaleCoord();
    static void SlopeListFill(Control& list);
    void RefreshSlopeA();
    void RefreshSlopeB();
    void Read0InRefresh();
    void MultiplierFill(Control& list);

    // decimal_points.cpp
    void DecPtFill();
    void DecPtAlign();

    // custom_curve.cpp
    void RefreshCurve();
    void CurveListFill();
    void SqRtRefresh();

  private:
    FramedArray<kLevels> List(const std::array<Control*, 4>& places, std::string_view name,
                              std::string_view caption) {
        return Build.WrapEach<kLevels>(ControlKind::List, {places}, name, caption);
    }
    int Level() const { return Values().ItemLevel; }

    void WireGroup(ScalingGroup& group);
    void WireOffset(ScalingGroup& group);
    void WireDecimalPoints();
    void WireCurve();
    void WireBatch();
    bool ShowForm(ScalingGroup& group);
    void ShowTexts(ScalingGroup& group);
    void MarkImpossible(ScalingGroup& group);
    void ShowClockOffset(ScalingGroup& group);
    void PickForm(ScalingGroup& group, int form);
    void PickDecimalPoint1(int index);
    void PickDecimalPoint2(int index);
    void PickCurve(Control& list);
    void PickSquareRoot(Control& box);
    void PickBatchItem2(Control& list);
    void ShowBatchItem2();
    bool CurveChosen() const;
    std::string ItemName(int item, int more = 0) const;

    int previousLevel_ = kNoLevel;
    bool curveInForce_ = false;  // a Custom Curve is selected and its frame is enabled

    static constexpr int kNoLevel = 9;
};

}  // namespace counter
