#pragma once
#include <string>

/// Whether objects of a meta-model file are of sizes that are accepted and only take time to save. Sizes that
/// are refused are none of these.
bool isSlowMetaModel(const std::string& file);
