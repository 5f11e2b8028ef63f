// The process's skeleton.
#pragma once
namespace tessaro {
int TessaroMain(int argc, char** argv);
void Initialize();
void CheckEvents();   // one event and one idle step
void SetupLimits();
void ApriPercorso(const char* pathUtf8);   // as the desktop's "odoc" does
}   // namespace tessaro
