#pragma once

namespace korvanta {

// Whether a piece of code is running. Code that lets messages run can be called again before it returns (it is
// re-entrant); a flag with a scope at its beginning tells the first call from those inside it.
class ReentryFlag {
  public:
    class Scope;

    ReentryFlag() = default;
    ReentryFlag(const ReentryFlag&) = delete;
    ReentryFlag& operator=(const ReentryFlag&) = delete;
    inline ~ReentryFlag();

    bool IsSet() const { return scope_ != nullptr; }

  private:
    Scope* scope_ = nullptr;
};

// Sets the flag until the scope is left, by whatever way: the end, a return, an exception. The flag's owner may be
// destroyed inside the scope.
class ReentryFlag::Scope {
  public:
    explicit Scope(ReentryFlag& flag) : flag_(flag.IsSet() ? nullptr : &flag), entered_(flag_ != nullptr) {
        if (flag_) {
            flag_->scope_ = this;
        }
    }
    ~Scope() {
        if (flag_) {
            flag_->scope_ = nullptr;
        }
    }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

    // False inside another scope of the same flag, which then stays set until that one is left.
    bool Entered() const { return entered_; }

  private:
    friend class ReentryFlag;

    ReentryFlag* flag_;
    const bool entered_;
};

inline ReentryFlag::~ReentryFlag() {
    if (scope_) {
        scope_->flag_ = nullptr;
    }
}

}  // namespace korvanta
