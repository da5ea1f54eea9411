// Marlux 3. How a toolkit object tells its owner of something: an object and one of its member functions.
//
//   TmyEvent<TmyEdit&> changed;
//   edit.changed.Bind<&FilterPanel::EditChanged>(this);
//
// An event that is not bound does nothing. The handler may destroy the object that holds the event, so raising an event
// is the last thing a function does, or the function holds its window first (TmyWindowBase::Hold).
#pragma once

template <class... Args>
class TmyEvent {
 public:
  template <auto kMethod, class Owner>
  void Bind(Owner* owner) noexcept {
    owner_ = owner;
    call_ = [](void* object, Args... arguments) { (static_cast<Owner*>(object)->*kMethod)(arguments...); };
  }
  void Unbind() noexcept {
    owner_ = nullptr;
    call_ = nullptr;
  }
  [[nodiscard]] bool IsBound() const noexcept { return owner_ != nullptr && call_ != nullptr; }
  // By value from a copy: the handler may rebind or destroy this event.
  void operator()(Args... arguments) const {
    const TmyEvent copy = *this;
    if (copy.IsBound()) copy.call_(copy.owner_, arguments...);
  }

 private:
  void* owner_ = nullptr;  // not owned; outlives this event or unbinds it
  void (*call_)(void*, Args...) = nullptr;
};
