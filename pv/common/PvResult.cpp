#include "PvResult.h"

PvResult::PvResult() : code_(Code::Ok) {}

PvResult::PvResult(Code code, const PvString& description) : code_(code), description_(description) {}

bool PvResult::IsOK() const { return code_ == Code::Ok; }

PvResult::Code PvResult::GetCode() const { return code_; }

PvString PvResult::GetDescription() const { return description_; }
