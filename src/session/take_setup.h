// Another setup comes to be in memory: where it came from is noted, and what was there is kept.
#pragma once

#include <string>

#include "session/session.h"

namespace counter {

// The setup that `from` brought. Doubt: why it may not be a whole one, a sentence; empty: it is.
void TakeSetup(Session& session, const SetupImage& image, SetupSource from, const std::string& doubt = {},
               const std::string& path = {});
// The setup in memory lies in this file as it is now.
void SetupIsSaved(Session& session, const std::string& path);

// A Get or Put has ended; the number is the link's.
void NoteTransfer(Session& session, bool put, bool good);

// The setup that was in memory before the last one came is there again, with its changes, and that one is
// kept in its place. Only where there is one.
void GoBackToSetupBefore(Session& session);

// Fields in which the setup in memory differs from what came; fields that show the digits of others are left
// out.
int FieldsChanged(const Session& session);
bool SetupChanged(const Session& session);

}  // namespace counter
