// kelmfilter: started by the print system once per job (filter(7)).
#include <cstdio>

#include "filter/pipeline.hpp"

int main(int argc, char* argv[]) {
  static char buffer[1U << 16U];
  std::setvbuf(stdout, buffer, _IOFBF, sizeof buffer);
  return kelm::filter::runFilter(argc, argv, stdout);
}
