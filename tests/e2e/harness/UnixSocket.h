// Local stream sockets as the harness's fakes use them: the panel end and the controller tap
// listen, the controller link and the tap's upstream connect.
#pragma once

#include <string>

namespace e2e {

// A connected socket to `path`, or -1.
int ConnectUnix(const std::string& path);

// A socket listening on `path` (a stale file there is removed first), or -1 with the reason
// in *error; `what` names the listener in that reason.
int ListenUnix(const std::string& path, int backlog, const std::string& what, std::string* error);

// Sends all of `bytes` (retrying after signals); false when the peer is gone.
bool SendAll(int fd, const std::string& bytes);

}  // namespace e2e
