// stdio streams that write to a sink.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>

#include "base/byte_source.hpp"

namespace kelm::platform {

// A stream for writing that passes all bytes to `sink`, which must live longer than the stream.
// Null when memory is exhausted. The stream does not learn of the sink's errors: after one it would
// keep the lost bytes in its buffer.
std::FILE* openSinkStream(base::DescriptorSink& sink);

}  // namespace kelm::platform
