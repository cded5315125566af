// A custom curve on its way into the meter's non-volatile memory, over Custom ASCII.
//
//   main board    V-F board
//   WL69...Z      WLFF...Z     the second item, 84 digits, into the upper block
//   WL54...Z      WLEA...Z     the first item
//   XL69Z         XLFFZ        comes back as it was sent
//   XL54Z         XLEAZ        likewise
//   C0            C0           takes the curve in use; only after two good answers
//
// The meter confirms no write, so reading back is the whole proof.
#pragma once

#include <functional>

#include "curve/prm_file.h"
#include "link/link.h"

namespace counter {

enum class CurveBoard { Main, VToF };

inline constexpr const char* kSendingText = " SENDING DATA TO METER";
inline constexpr const char* kSentText = " DATA SENT";
inline constexpr const char* kVerifyingText = " VERIFYING RECEPTION";
inline constexpr const char* kStoredText = " DATA PROPERLY RECEIVED AND STORED IN METER.";
inline constexpr const char* kVerifyFailedText = " VERIFY FAILED.  DATA MOST LIKELY NOT RECEIVED BY METER.";
inline constexpr const char* kCheckCablingText =
    " CHECK THE METER COMMUNICATIONS SETTINGS AND THE CABLING AND TRY AGAIN.";

enum class CurveEnd {
    Stored,      // both items came back as they were sent, and the meter was reset
    Failed,      // one did not, or did not come; the meter keeps what it received
    NotBegun,    // the end was wanted before the first item
    NotVerified  // the end was wanted later: both items have gone out, and the curve is not taken in use
};

// What the meter was left with by a transfer that an end has cut short, for people.
const char* LeftBy(CurveEnd end);

// Sends the items and reads them back, telling the first three texts above when it is so. An item that comes
// back as another one leaves LinkError at 1 (the second) or 2. `endWanted`, which may be empty, is looked at
// before each frame; half a curve helps nobody, so that the second item follows the first whatever it says.
CurveEnd SendCurve(Link& link, const CurveItems& items, CurveBoard board,
                   const std::function<void(const char* text)>& tell,
                   const std::function<bool()>& endWanted = {});

}  // namespace counter
