#pragma once

namespace korvanta {

// What a List can hold by reference.
class Object {
  public:
    virtual ~Object() = default;

  protected:
    Object() = default;
    Object(const Object&) = default;
    Object& operator=(const Object&) = default;
};

}  // namespace korvanta
