// The whole header of a job, in the one order that the printer's firmware knows.
#pragma once

#include <cstdio>

#include "filter/print_job.hpp"

namespace kelm::pjl {

// Writes the header, from the UEL to the switch to PostScript. Never fails.
void OutputPJL(std::FILE* stream, filter::PrintJobData& job);

}  // namespace kelm::pjl
