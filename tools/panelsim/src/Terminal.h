// Interactive mode: the panel drawn in the terminal, keys from the keyboard.
#pragma once

namespace Panelsim {

class CPanelServer;

// SIGINT, SIGTERM and SIGHUP ask the panel to stop, in either mode.
void CatchStopSignals();
bool StopRequested();

// Runs until the user quits ('q') or a signal asks to stop; returns the exit status.
int RunTerminal(CPanelServer& server);

}  // namespace Panelsim
