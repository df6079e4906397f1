// Text constants shared by every part of the daemon.
#pragma once

// The client name of every request this daemon makes.
extern const char* const kZorClientName;
// File extension of saved profiles.
extern const char* const kProfileExtension;
// The panel end of the serial multiplexer.
extern const char* const kPanelSocketPath;
