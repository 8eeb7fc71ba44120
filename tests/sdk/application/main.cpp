// Ends with 0 if a search through the SDK finds what the stand-in has: nothing.
#include "camera/CameraCenter.h"

int main() {
  const CameraCenter center("");
  return center.cameras.empty() ? 0 : 1;
}
