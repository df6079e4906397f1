// The fuzz targets' entry points. Each takes one input and returns 0; a broken invariant
// goes to Fuzz::Fail, a memory error or undefined behaviour to the sanitizers.
#pragma once

#include <cstddef>
#include <cstdint>

namespace Fuzz {

// Key report bytes through the frame assembler into the keypad, chunked (byte 0 seeds).
int KeypadStream(const uint8_t* data, size_t size);
// Any text through the display's character replacement.
int DisplayText(const uint8_t* data, size_t size);
// Display command bytes into the panel emulator's decoder, chunked (byte 0 seeds).
int PanelDecoder(const uint8_t* data, size_t size);
// Request lines through a unitd session.
int UnitdRequest(const uint8_t* data, size_t size);
// Oid texts: parsing and the text forms.
int ZorOid(const uint8_t* data, size_t size);
// JSON values and texts into values and through every conversion.
int ZorParam(const uint8_t* data, size_t size);

}  // namespace Fuzz
