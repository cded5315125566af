// The remote display: a value for the meter's display or for Item 3, and the help line beside it.
#include "commands/commands_view.h"
#include "commands/remote_display.h"
#include "link/ascii_frame.h"
#include "link/exchange.h"

namespace counter {

void CommandsView::WireRemote(Control& button, Request target, const char* status) {
    Controls.On(button, [this, target, status](Control&) { SendRemote(target, status); });
}

// The line helps with Display Mode C, which is a matter of Custom ASCII alone.
void CommandsView::WireHelpLine() {
    const auto showHelp = [this] {
        if (!Program.LinkState.ModbusLink) lblModeC.Visible = true;
    };
    Controls.On(txtRmtDspy, [showHelp](Control&) { showHelp(); });
    Controls.OnGotFocus(txtRmtDspy, [this, showHelp](Control& entry) {
        if (rmtClearOnFocus_ != 1) return;
        entry.Text.clear();
        rmtClearOnFocus_ = 0;
        showHelp();
    });
    Controls.OnLostFocus(txtRmtDspy, [this](Control&) { lblModeC.Visible = false; });
}

void CommandsView::RefuseTyped(const std::string& typed) {
    ShowStatus(NoMeterText(typed), ColorRed);
}

// In Custom ASCII the text goes out exactly as typed. Over Modbus a number that its 32 bits can't hold is
// refused and stays in the field.
void CommandsView::SendRemote(const Request& target, const char* status) {
    LinkState& link = Program.LinkState;
    if (!link.ModbusLink) {
        ReportSending(status);
        link.CommandText = target.WithoutHead
                               ? txtRmtDspy.Text
                               : AsciiCommand(link, std::string(target.Ascii) + txtRmtDspy.Text);
    } else {
        const auto digits = RemoteDigits(txtRmtDspy.Text);
        if (!digits) {
            WhyNotSent = "A value for the display is -2147483648 to 2147483647 over Modbus.";
            ShowStatus(WhyNotSent, ColorRed);
            return;
        }
        ReportSending(status);
        link.ModbusPayload = std::string(target.Modbus) + *digits;
    }
    SendCommand(Program.Link);
}

void CommandsView::ReportSending(const char* status) {
    WhyNotSent.clear();
    rmtClearOnFocus_ = 1;
    ShowStatus(status, ColorGreen);
}

}  // namespace counter
