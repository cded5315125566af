#include "calibration/calibration.h"

#include <algorithm>

#include "link/exchange.h"
#include "link/link_error.h"
#include "link/single_reading.h"
#include "link/waits.h"
#include "meter/hex_text.h"
#include "meter/text.h"

namespace counter {

namespace {

constexpr float kStreamEndsS = 0.5F;
constexpr float kRestS = 1;     // after each step: the meter writes its non-volatile memory
constexpr float kSettlesS = 3;  // a reading under a new scale

constexpr std::size_t kHalfDigits = 6;  // of the offset and of the scale factor
constexpr std::size_t kScaleDigits = 12;
constexpr std::size_t kWordDigits = 4;

// The words of the meter that a calibration writes, as digits.
struct Words {
    std::string Scale;  // offset and scale factor
    std::string Exponent, Factor;
};

bool IsWord(const std::string& text, std::size_t digits) {
    return text.size() == digits &&
           std::all_of(text.begin(), text.end(), [](char c) { return HexDigitValue(c) >= 0; });
}

bool AreWords(const Words& words) {
    return IsWord(words.Scale, kScaleDigits) && IsWord(words.Exponent, kWordDigits) &&
           IsWord(words.Factor, kWordDigits);
}

std::string Quoted(const std::string& text) {
    return "\"" + Printable(text) + "\"";
}

class Procedure {
  public:
    Procedure(Link& link, const CalibrationUser& user) : link_(link), user_(user) {}

    CalibrationResult Run(double hertz) {
        SendAscii(link_, "A1");
        Rest(kStreamEndsS);
        Words words = Save();
        if (!EndWanted() && Accepts(DoubtOf(words))) {
            const bool measured = Measure(hertz, words.Exponent);
            Restore(words, measured);
            if (measured && Accepts(DoubtOfMeasurement())) {
                words.Factor = CorrectionWord(result_.Applied.Ppm);
                result_.End = CalibrationEnd::Calibrated;
            }
            if (IsWord(words.Factor, kWordDigits)) Write("W12B" + words.Factor);
            Delay(link_, kRestS);
            Check(words);
        }
        Tell(CalibrationStage::Done);
        return result_;
    }

  private:
    Words Save() {
        Words words;
        words.Scale = Ask("X311Z", kScaleDigits, LinkErrors::kScaleLength);
        Rest(kRestS);
        words.Exponent = Ask("X124Z", kWordDigits, LinkErrors::kExponentLength);
        Rest(kRestS);
        words.Factor = Ask("X12BZ", kWordDigits, LinkErrors::kExponentLength);
        Read();
        return words;
    }

    // False: the end is wanted, and nothing was measured.
    bool Measure(double hertz, const std::string& exponent) {
        const TestScale scale = TestScaleFor(hertz);
        result_.End = CalibrationEnd::PutBack;
        Write("W12B0000Z");
        Rest(kRestS);
        Tell(CalibrationStage::Calculating);
        if (EndWanted()) return false;
        scaled_ = true;
        Write("W311000000" + scale.Mantissa + "Z");
        Rest(kRestS);
        if (EndWanted()) return false;
        Write("W124" + WithExponent(exponent, scale.Exponent));
        Rest(kSettlesS);
        if (EndWanted()) return false;
        Read();
        result_.Applied = CorrectionFor(ReadingOf(link_.State.RawReply));
        if (result_.Applied.Limited) Tell(CalibrationStage::Limited);
        return true;
    }

    // From here on nothing is cut short: the meter is writing its memory.
    void Restore(const Words& had, bool measured) {
        Tell(CalibrationStage::Returning);
        Delay(link_, kRestS);
        if (scaled_) {
            Write("W311" + had.Scale.substr(0, kHalfDigits) +
                  had.Scale.substr(had.Scale.size() - std::min(kHalfDigits, had.Scale.size())) + "Z");
            Delay(link_, kRestS);
        }
        if (measured) Tell(CalibrationStage::Setting);
        if (!scaled_) return;
        Write("W124" + had.Exponent + "Z");
        Delay(link_, kRestS);
    }

    void Check(const Words& wanted) {
        CheckWord("X311Z", "offset and scale factor", wanted.Scale);
        CheckWord("X124Z", "exponent", wanted.Exponent);
        CheckWord("X12BZ", "calibration factor", wanted.Factor);
    }

    void CheckWord(const char* body, const char* name, const std::string& wanted) {
        AskAscii(link_, body);
        Note(link_.State.LinkError);
        const bool came = link_.State.LinkError == LinkErrors::kGood;
        if (came && link_.State.RawReply == wanted) return;
        Note(LinkErrors::kNotKept);
        if (!result_.NotKept.empty()) result_.NotKept += "; ";
        result_.NotKept += std::string(name) + ": " + wanted + " was written, " +
                           (came ? Quoted(link_.State.RawReply) : "nothing") + " comes back";
    }

    // What can't be put back, or a meter that measures nothing.
    std::string DoubtOf(const Words& words) const {
        if (!AreWords(words))
            return "The scale and the calibration factor of the meter did not come whole, so that they could "
                   "not be "
                   "put back.";
        if (!IsReading(reading_)) return "The meter sends no reading: " + Quoted(reading_) + ".";
        return ReadingOf(reading_) == 0 ? "The reading is 0: is the frequency at the input?" : "";
    }

    std::string DoubtOfMeasurement() const {
        if (!IsReading(reading_))
            return "The meter sent no reading under its test scale: " + Quoted(reading_) + ".";
        if (!result_.Applied.Limited) return {};
        return "The reading is " + reading_ +
               ", and 900000 without its point is what it should be: is the frequency at the input, and is "
               "it the "
               "one that was entered? The correction would be the largest that there is.";
    }

    // A reading that failed is none, whatever an earlier reply has left.
    void Read() {
        if (EndWanted()) return;
        AskValue(link_, "B1");
        Note(link_.State.LinkError);
        reading_ = link_.State.LinkError == LinkErrors::kGood ? link_.State.ReplyText : "";
    }

    bool Accepts(const std::string& doubt) {
        if (doubt.empty()) return true;
        if (!EndWanted() && (!user_.GoOn || user_.GoOn(doubt))) return true;
        result_.Doubt = doubt;
        Note(LinkErrors::kNoMeasurement);
        return false;
    }

    void Write(const std::string& body) { SendAscii(link_, body); }

    std::string Ask(const char* body, std::size_t digits, int badLength) {
        if (EndWanted()) return {};
        AskAscii(link_, body);
        Note(link_.State.LinkError);
        if (!IsWord(link_.State.RawReply, digits)) Note(badLength);
        return link_.State.RawReply;
    }

    void Rest(float seconds) {
        link_.Pump.WaitUntil(
            link_.Pump.NowMs() + static_cast<double>(seconds) * 1000, [this] { return EndWanted(); }, "rest");
    }

    bool EndWanted() const { return user_.EndWanted && user_.EndWanted(); }
    void Tell(CalibrationStage stage) const {
        if (user_.Tell) user_.Tell(stage, result_);
    }
    void Note(int linkError) {
        if (result_.LinkError == 0) result_.LinkError = linkError;
    }

    Link& link_;
    const CalibrationUser& user_;
    CalibrationResult result_;
    std::string reading_;
    bool scaled_ = false;  // the test scale was sent
};

}  // namespace

std::string OutcomeOf(const CalibrationResult& result) {
    if (!result.NotKept.empty()) {
        return "Not all that was written comes back. " + result.NotKept +
               ". Put the setup that it had into it again, and calibrate it.";
    }
    switch (result.End) {
        case CalibrationEnd::Untouched:
            return "Nothing was written: the meter has the scale and the calibration factor that it had.";
        case CalibrationEnd::PutBack:
            return "The meter has its scale and its calibration factor back.";
        case CalibrationEnd::Calibrated:
            break;
    }
    return kDoneText;
}

CalibrationResult RunCalibration(Link& link, const std::string& frequency, const CalibrationUser& user) {
    return Procedure(link, user).Run(FrequencyOf(frequency));
}

}  // namespace counter
