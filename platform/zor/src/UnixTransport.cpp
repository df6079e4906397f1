#include "Transport.h"

namespace Zor {

std::shared_ptr<ITransport> MakeUnixTransport(const std::string& path)
{
    return MakeFailedTransport("controller unix:" + path + " is not reachable");
}

}  // namespace Zor
