// The target that compiles the headers of others for all has no code of its own.
int main() { return 0; }
