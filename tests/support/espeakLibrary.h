#pragma once

#include "engine/EspeakLibrary.h"

namespace lorelin::engine {

// The library can be begun once in a process.
inline EspeakLibrary& TheEspeakLibrary() {
  static EspeakLibrary library;
  return library;
}

}  // namespace lorelin::engine
