#include "Menus/ProfileStatus.h"

namespace {

const CLineSpec kLines[] = {
    Text("Last Applied Profile:", "profileLastAppliedProfile", ".0"),
};

}  // namespace

CProfileStatus::CProfileStatus() : CStatusTableScreen("Profile Status", "Admin", kLines) {}
