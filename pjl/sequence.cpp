// The whole header of a job, in the one order that the printer's firmware knows.
#include "pjl/sequence.hpp"

#include "pjl/frame.hpp"

namespace kelm::pjl {

void OutputPJL(std::FILE* stream, filter::PrintJobData& /*job*/) {
  Output_Header(stream);
  Output_Comment(stream);
  Output_QVPJLVERSION(stream);
  Output_QVPJLIDENTIFIER(stream);
  Output_QVRIPCONTROLFLAG(stream);
  Output_QVSOFTWARENAME(stream);
  Output_QVSOFTWAREVERSION(stream);
  Output_EnterPostScript(stream);
}

}  // namespace kelm::pjl
