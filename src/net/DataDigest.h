#pragma once
// The game data every machine of a match must share: the pictures decide where a throw hits, so
// a host takes only joiners whose pictures and sounds are the very same as his.
#include <QString>
#include <vector>

#include "core/DataFolder.h"
#include "net/Protocol.h"

namespace net {

// Every picture and sound in `folder`, by path, sorted by path.
std::vector<FileDigest> digestData(const core::DataFolder& folder);

// The first file in which the host's and a joiner's data differ, as one line
// ("sounds/throw.wav differs"); empty when they agree.
QString dataDifference(const std::vector<FileDigest>& host, const std::vector<FileDigest>& joiner);

}  // namespace net
