// FrameRules: how the meter is set to frame the readings of its stream.
#pragma once

namespace counter {

inline constexpr char kLineFeed = '\n';
inline constexpr char kCarriageReturn = '\r';
inline constexpr char kNoCharacter = '\0';

// Frames on the wire, DATA being a reading as the meter's display shows it:
//
//   DATA CR                     the plain one
//   DATA CR LF                  LineFeedFlag 1
//   lead DATA end [LF]          characters of the user's choice
//   lead DATA [LF] lead ...     the same without an end character: the next frame's lead ends this one, and
//                               with a line feed FrameBackStep is 1
struct FrameRules {
    int LineFeedFlag = 0;                 // 1: a line feed comes after the frame
    char FrameEndChar = kCarriageReturn;  // ends a frame
    char FrameLeadChar = kNoCharacter;    // comes before the data
    int FrameBackStep = 0;                // 1: one character before FrameEndChar is not data
    int Failure = 0;  // LinkError of the first question about them that failed; the rules are then a guess
};

}  // namespace counter
