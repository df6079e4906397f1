// The whole Qb tool library.
#pragma once

#include "Qb/Atomic.h"
#include "Qb/Daemon.h"
#include "Qb/IpAddress.h"
#include "Qb/MsgQ.h"
#include "Qb/Mutex.h"
#include "Qb/Print.h"
#include "Qb/Semaphore.h"
#include "Qb/Socket.h"
#include "Qb/Str.h"
#include "Qb/Thread.h"
#include "Qb/Types.h"
#include "Qb/Uncopyable.h"
#include "Qb/WakeUpTimer.h"
