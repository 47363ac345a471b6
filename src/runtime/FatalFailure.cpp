#include "runtime/FatalFailure.h"

namespace tessaly {

const char* failureText(FailureKind kind) {
    switch (kind) {
    case FailureKind::SubscriptOutOfRange: return "下标越界";
    case FailureKind::Overflow: return "溢出";
    case FailureKind::TypeMismatch: return "类型不匹配";
    case FailureKind::InvalidCall: return "无效的过程调用或参数";
    case FailureKind::DivisionByZero: return "除数为零";
    }
    return "运行时错误";
}

static std::string composeMessage(FailureKind kind, const std::string& detail) {
    std::string message = failureText(kind);
    if (!detail.empty()) message += "（" + detail + "）";
    return message;
}

FatalFailure::FatalFailure(FailureKind kind, const std::string& detail)
    : std::runtime_error(composeMessage(kind, detail)), kind_(kind) {}

}  // namespace tessaly
