// The program itself does nothing: it carries the precompiled header that all tests share.
int main() { return 0; }
