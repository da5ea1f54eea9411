// Marlux 3. Makes the module's own code known to the unwinder that is linked into it.
#pragma once

// The compiler's start-up code makes it known to the shared runtime instead when the process has that loaded: a host
// made by the same compiler has. Our throws ask the unwinder in here, which would then know nobody who catches them.
// To be called before the first throw; does nothing where all is well.
void RegisterExceptionFrames() noexcept;
void ForgetExceptionFrames() noexcept;  // at the end: the unwinder has taken memory for them
