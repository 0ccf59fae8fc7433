#pragma once

namespace tovarin {

class Tovarin;

// The start-up sequence, step by step; Main runs all of it and the event loop.
int Main();
void EarlyStartup();
void InitFileTypes();
void NewAppInstance();
void ApplicationAddMenuHandlers();
void LateStartup();
void MakeDefaultView();

// The application object made by NewAppInstance, or nullptr before.
Tovarin* application();
// Ends the application object once the event loop is over.
void ShutDown();

// True when a windowing system can be reached; Qt aborts the process otherwise.
bool hasDisplay();

} // namespace tovarin
