// Controls of one kind under one name: element k bears the object name "Name_k". An index without a control
// is error 340.
#pragma once

#include "basic/RunTimeError.h"

#include <initializer_list>
#include <map>
#include <string>

namespace korvel {

template <typename Control>
class ControlArray {
  public:
    explicit ControlArray(std::string name) : m_name(std::move(name)) {}

    std::string elementName(int index) const { return m_name + "_" + std::to_string(index); }
    void add(int index, Control& control) { m_controls[index] = &control; }
    Control& operator[](int index) const {
        const auto found = m_controls.find(index);
        if (found == m_controls.end()) throw RunTimeError(340, "Control array element doesn't exist");
        return *found->second;
    }
    auto begin() const { return m_controls.begin(); }
    auto end() const { return m_controls.end(); }

  private:
    std::string m_name;
    std::map<int, Control*> m_controls;
};

} // namespace korvel
