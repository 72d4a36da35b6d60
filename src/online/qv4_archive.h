#pragma once

namespace qv {

class Session;

// Copies the website's results file (the first local file whose name ends ".qv4") into the archive of results
// files, asking before it replaces one of the same name. True when the archive changed.
bool copy_qv4_to_archive(Session& session);

} // namespace qv
