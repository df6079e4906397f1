// Base for classes that must never be copied or assigned.
#pragma once

namespace Qb {

class CUncopyable {
protected:
    CUncopyable() = default;
    ~CUncopyable() = default;

public:
    CUncopyable(const CUncopyable&) = delete;
    CUncopyable& operator=(const CUncopyable&) = delete;
};

}  // namespace Qb
