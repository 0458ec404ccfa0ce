#include <gtest/gtest.h>

#include "platform/wx/application.h"
#include "text/runTimeError.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    return brasquelin::runApplication([] { throw brasquelin::EndProgram(RUN_ALL_TESTS()); });
}
