// Stories: what a user does to the Setup view, and what is then seen, a line each.
//
// A story starts from the default setup (a Counter of version 83 with two signal conditioners, Extended, Rate
// "A, B") without a link. Its parts are separated by "; ".
//
//   Given  199=30         digits put into the image at a position
//          type=7         MeterType; likewise comms (CommsEnabled), modbus (ModbusLink), nopanel, frommeter,
//                         ether, parity
//   Does   tab 4          comes to a tab
//          cboMode #2     picks the entry with that index
//          chkLF 1        sets a box
//          optBasic       clicks
//          txtMBAddr := 0A  opens digit entry, which stores these digits and closes; "cancel" stores nothing
//          @201=10        digits put into the image without the view's knowing
//          reopen         the view comes to the front again
//          help           F1 and OK
//          ~tab 5         is done 5 ms later, in the wait of what comes next
//          !cboCR #1      is refused, and changes nothing in the image
//   Sees   cboMode=Rate   the selected entry, "(none)" without one; a text, a caption, or 0 and 1
//          cboMode.on=1   enabled; .show visible, .back and .color colours, .list entries joined by "|"
//          @199=30        digits of the image
//          tab5=1         offered; tab=0 the one on show
//          parity=2      the link's copy of the parity
//          asked=type 3 at 31   what the click asks digit entry for, "time 1" and "low" where they are
//          box=...        the last message's text; boxes=1 how many
//          ended=1        a message ended the program
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include "setup_view/setup_view.h"
#include "support/bench_meter.h"

namespace counter::test {

struct Story {
    const char *Name, *Given, *Does, *Sees;
};

class SetupBench {
  public:
    explicit SetupBench(const std::string& given = "");

    BenchMeter Bench;
    SetupView View{Bench.Program};
    bool Ended = false;

    void Open();
    void Do(const std::string& deeds);
    std::string Seen(const std::string& what, std::size_t length = 2);
    SetupImage& Image() { return Bench.Program.Image; }

  private:
    void Give(const std::string& fact);
    Refusal Act(const std::string& deed);
    Refusal Enter(Control& value, const std::string& digits);
    void Refused(const std::string& deed);
};

// Runs each story and compares all that it sees.
void RunStories(std::initializer_list<Story> stories);

}  // namespace counter::test
