// A program that only starts and tells so: what --dry-run is measured against.
#include <iostream>

int main() {
    std::cout << "started" << std::endl;
}
