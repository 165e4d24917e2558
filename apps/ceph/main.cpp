#include "apps/ceph/program.h"

int main(int argc, char **argv) {
  return app::run_program(argc, argv);
}
