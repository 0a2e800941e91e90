#pragma once

#include <string>

namespace suitefiles {

/// Writes a file of a server into `to` by the server's own tool, pg_dump, in the form that its pg_restore reads. CommandError when it
/// isn't installed, or with what it says was wrong; nothing of `to` stays then.
void DumpFromServer(const std::string& path, const std::string& to);

}  // namespace suitefiles
