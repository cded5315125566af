#include "calibration/calibration.h"

#include <algorithm>

#include "link/exchange.h"
#include "link/link_error.h"
#include "link/single_reading.h"
#include "link/waits.h"

namespace counter {

namespace {

constexpr float kStreamEndsS = 0.5F;
constexpr float kRestS = 1;     // after each step: the meter writes its non-volatile memory
constexpr float kSettlesS = 3;  // a reading under a new scale

constexpr std::size_t kHalfDigits = 6;  // of the offset and of the scale factor
constexpr std::size_t kScaleDigits = 12;
constexpr std::size_t kExponentDigits = 4;

// What the meter had before.
struct Saved {
    std::string Offset, Scale, Exponent;
};

class Procedure {
  public:
    Procedure(Link& link, const CalibrationTell& tell) : link_(link), tell_(tell) {}

    CalibrationResult Run(double hertz) {
        SendAscii(link_, "A1");
        Delay(link_, kStreamEndsS);
        const Saved saved = Save();
        Write("W12B0000Z");
        tell_(CalibrationStage::Calculating, result_);
        SetTestScale(TestScaleFor(hertz), saved.Exponent);
        Measure();
        Restore(saved);
        Write("W12B" + CorrectionWord(result_.Applied.Ppm));
        if (result_.LinkError == 0 && !LineHolds(link_)) Note(LinkErrors::kPortFault);
        tell_(CalibrationStage::Done, result_);
        return result_;
    }

  private:
    Saved Save() {
        const std::string scale = Ask("X311Z", kScaleDigits, LinkErrors::kScaleLength);
        Delay(link_, kRestS);
        const std::string exponent = Ask("X124Z", kExponentDigits, LinkErrors::kExponentLength);
        Delay(link_, kRestS);
        return {scale.substr(0, kHalfDigits),
                scale.substr(scale.size() - std::min(kHalfDigits, scale.size())), exponent};
    }

    void SetTestScale(const TestScale& scale, const std::string& exponent) {
        Write("W311000000" + scale.Mantissa + "Z");
        SendAscii(link_, "W124" + WithExponent(exponent, scale.Exponent));
        Delay(link_, kSettlesS);
    }

    void Measure() {
        AskValue(link_, "B1");
        Note(link_.State.LinkError);
        result_.Applied = CorrectionFor(ReadingOf(link_.State.RawReply));
        if (result_.Applied.Limited) tell_(CalibrationStage::Limited, result_);
    }

    void Restore(const Saved& saved) {
        tell_(CalibrationStage::Returning, result_);
        Delay(link_, kRestS);
        Write("W311" + saved.Offset + saved.Scale + "Z");
        tell_(CalibrationStage::Setting, result_);
        Write("W124" + saved.Exponent + "Z");
    }

    void Write(const std::string& body) {
        SendAscii(link_, body);
        Delay(link_, kRestS);
    }

    std::string Ask(const char* body, std::size_t digits, int badLength) {
        AskAscii(link_, body);
        Note(link_.State.LinkError);
        if (link_.State.RawReply.size() != digits) Note(badLength);
        return link_.State.RawReply;
    }

    void Note(int linkError) {
        if (result_.LinkError == 0) result_.LinkError = linkError;
    }

    Link& link_;
    const CalibrationTell& tell_;
    CalibrationResult result_;
};

}  // namespace

CalibrationResult RunCalibration(Link& link, const std::string& frequency, const CalibrationTell& tell) {
    return Procedure(link, tell).Run(FrequencyOf(frequency));
}

}  // namespace counter
