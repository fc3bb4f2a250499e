// The benchmarks. Each reports one line or more.
#pragma once

void BenchStartUp();
void BenchOpenProject();
void BenchFlood();
void BenchNoChangeBuild();
