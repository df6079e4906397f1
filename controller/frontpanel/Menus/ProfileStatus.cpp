#include "Menus/ProfileStatus.h"

#include "ScreenManager/ScreenNames.h"

namespace {

const CRow kLines[] = {
    Text("Last Applied Profile:", "profileLastAppliedProfile", ".0"),
    Target("Enter To Configure", ScreenName::kProfileConfig),
};

}  // namespace

CProfileStatus::CProfileStatus() : CStatusTableScreen(ScreenName::kProfileStatus, ScreenName::kAdmin, kLines) {}
