extern "C" int sampleAdd(int a, int b) { return a + b; }
