// The whole controller SDK.
#pragma once

#include "Zor/ClientOpts.h"
#include "Zor/DataEngine.h"
#include "Zor/EventSink.h"
#include "Zor/Oid.h"
#include "Zor/Op.h"
#include "Zor/Param.h"
#include "Zor/Ret.h"
#include "Zor/ZorClient.h"
