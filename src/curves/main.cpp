// Makes the file of a sensor curve from its source: korva-curves SOURCE TARGET

#include <cstdio>
#include <fstream>
#include <iostream>
#include <stdexcept>

#include "curves/curve.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: korva-curves SOURCE TARGET\n";
    return 2;
  }
  try {
    std::ifstream source(argv[1]);
    if (!source) {
      throw std::runtime_error("can't be read");
    }
    const korva::curves::Curve curve = korva::curves::ReadCurve(source);
    std::ofstream target(argv[2], std::ios::binary);
    target << korva::curves::FileOf(korva::curves::TableOf(curve)) << std::flush;
    if (!target) {
      std::remove(argv[2]);
      throw std::runtime_error(std::string("can't write ") + argv[2]);
    }
  } catch (const std::runtime_error& failure) {
    std::cerr << argv[1] << ": " << failure.what() << '\n';
    return 1;
  }
  return 0;
}
