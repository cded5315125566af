#include "cli/offline_session.h"

#include "link/read_settings.h"
#include "meter/field_code.h"

namespace counter {

OfflineSession::OfflineSession(const CommandCall& call)
    : call_(call),
      dialogs_(call.World.Err),
      files_(call.World.Store),
      session_(pump_, port_, dialogs_, {files_, call.Folder}) {}

void OfflineSession::Begin(const SetupImage& image) {
    session_.Image = image;
    std::string text;
    if (session_.Folder.Store.Read(session_.Folder.At(kSettingsFile), text).Ok()) {
        // Whether the port could be opened, and at what speed, is of no concern: none is meant.
        ReadSettings(session_.BringUp);
        read_ = session_.Settings.Lines;
    } else {
        TakeIdentityOfImage();
        if (!HasPanel(session_.Identity.MeterType)) session_.Identity.NoPanelModel = true;
    }
}

Status OfflineSession::WriteHeld() {
    if (const auto settings = files_.Take(session_.Folder.At(kSettingsFile))) {
        SettingsTurn turn(call_);
        SettingsLines wanted = SplitSettings(*settings);
        if (Status saved = SaveSettings(FolderOf(call_), turn.Wait(), read_, wanted); !saved.Ok())
            return saved;
    }
    return files_.Flush();
}

void OfflineSession::ImageIsFromMeter() {
    session_.Identity.SetupFromMeter = true;
    if (!session_.LinkState.ModbusLink) TakeIdentityOfImage();
}

void OfflineSession::TakeIdentityOfImage() {
    session_.Identity.MeterType = CodeOf(session_.Image, Field::MeterType);
    session_.Identity.FirmwareVersion = CodeOf(session_.Image, Field::FirmwareVersion);
}

}  // namespace counter
