// Key events as the keypad queues and dispatches them, and the codes they carry.
#pragma once

#include <map>

#include "Qb/Types.h"

// Key codes. Only KEY_NONE to KEY_ENTER take part in the key-state table.
enum {
    KEY_NONE = 0,
    KEY_LEFT = 1,
    KEY_UP = 2,
    KEY_RIGHT = 3,
    KEY_DOWN = 4,
    KEY_EXIT = 5,
    KEY_ENTER = 6,
    KEY_COUNT = 7
};

// Key states.
enum { KEY_STATE_DOWN = 1, KEY_STATE_UP = 2 };

// Event ids the keypad sends through its event source. KEYPAD_EVENT_KEY carries the
// KeyPress_t and the hold flag (bool); the combination events carry the key-state table
// (KeyStateTable_t) and the hold flag. Id 2 is never sent: releases are not dispatched.
enum { KEYPAD_EVENT_KEY = 1, KEYPAD_EVENT_COMBO_DOWN = 3, KEYPAD_EVENT_COMBO_UP = 4 };

// One key event.
struct KeyPress_t {
    Qb::int32 key;
    Qb::int32 state;
};

// Key code -> key state.
typedef std::map<Qb::int32, Qb::int32> KeyStateTable_t;
