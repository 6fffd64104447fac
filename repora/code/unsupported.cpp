#include "repora/code/unsupported.h"

std::string repora::NotDoneText(std::string_view keywords) {
  return std::string(keywords) + " ******** NOT DONE ********";
}
