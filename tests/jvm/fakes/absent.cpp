extern "C" __attribute__((visibility("default"))) int kelpbox_absent();
int kelpbox_absent() { return 1; }
