#include "Client/Globals.h"

const char* const kZorClientName = "zor.fp";
const char* const kProfileExtension = ".pfl";
const char* const kPanelSocketPath = "/var/run/ttyhub.ttyS4.socket";
