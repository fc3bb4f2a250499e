// The benchmarks. Each reports one line or more.
#pragma once

void BenchStartUp();
void BenchOpenProject();
void BenchFlood();
void BenchNoChangeBuild();
void BenchSymbols();
void BenchDebugStart();
void BenchDebugStep();
void BenchDebugBars();
void BenchEngineRun();

// Against another program. They are there where X11's client libraries are.
void BenchPeerStartUp();
void BenchPeerBigSource();
