// stdio streams over what this project writes to.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>

#include "base/byte_source.hpp"

namespace kelm::platform {

// A stream for writing that hands all bytes to `sink`, which must live longer than the stream.
// Null when memory is exhausted. The stream is told of no error: after one it would keep the lost
// bytes in its buffer.
std::FILE* openSinkStream(base::DescriptorSink& sink);

}  // namespace kelm::platform
