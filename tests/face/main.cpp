int formatsTest();
int faceTest();

int main() { return formatsTest() + faceTest() == 0 ? 0 : 1; }
