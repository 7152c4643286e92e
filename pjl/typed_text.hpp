// What plain jobs say of a text that a person typed.
#pragma once

#include <cstdio>

#include "filter/print_job.hpp"
#include "psrewrite/text_fields.hpp"

namespace kelm::pjl {

// "ON" when the field has a text that may be sent, else "OFF".
void writeTypedSwitch(std::FILE* stream, const filter::PrintJobData& job, const char* pjlName,
                      const psrewrite::TextField& field);

// The field's text in hex when it may be sent, else an empty value.
void writeTypedText(std::FILE* stream, const filter::PrintJobData& job, const char* pjlName,
                    const psrewrite::TextField& field);

}  // namespace kelm::pjl
