extern "C" int Nothing();
extern "C" int Nothing() {
    return 0;
}
