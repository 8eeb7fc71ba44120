// The camera's GenICam description, written from the register table.
#pragma once

#include <string>

namespace simulator {

/// The description that hosts read from the camera: schema 1.1, big-endian registers.
std::string genicamXml(const std::string& model);

/// Where hosts find it: the text of the URL register.
std::string genicamUrl(const std::string& model);

}  // namespace simulator
