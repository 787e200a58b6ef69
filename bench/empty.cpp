// What a start costs that does nothing, to compare others with.
int main() {}
