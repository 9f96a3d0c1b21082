// A QEMU plugin that counts the guest's instructions. The guest's calls of getppid() bound what is measured: with 0 as
// the first argument the count starts anew, with 1 it is written to standard output behind what the guest wrote there.

#include <sys/types.h>

#include <cinttypes>
#include <cstdint>
#include <cstdio>

// Debian's packages lack QEMU's plugin header: these are the declarations of interface version 1.
struct qemu_info_t;
struct qemu_plugin_tb;
using BlockCallback = void (*)(uint64_t plugin, qemu_plugin_tb *block);
using SyscallCallback = void (*)(uint64_t plugin, unsigned cpu, int64_t number, uint64_t first, uint64_t, uint64_t,
                                 uint64_t, uint64_t, uint64_t, uint64_t, uint64_t);

extern "C" {
void qemu_plugin_register_vcpu_tb_trans_cb(uint64_t plugin, BlockCallback callback);
void qemu_plugin_register_vcpu_syscall_cb(uint64_t plugin, SyscallCallback callback);
void qemu_plugin_register_vcpu_tb_exec_inline(qemu_plugin_tb *block, int addOperation, void *sum, uint64_t addend);
size_t qemu_plugin_tb_n_insns(const qemu_plugin_tb *block);

__attribute__((visibility("default"))) int qemu_plugin_version = 1;

__attribute__((visibility("default"))) int qemu_plugin_install(uint64_t plugin, const qemu_info_t *, int, char **) {
    static constexpr int64_t armGetppid = 64;
    static uint64_t executed = 0;
    static uint64_t executedAtStart = 0;
    qemu_plugin_register_vcpu_tb_trans_cb(plugin, [](uint64_t, qemu_plugin_tb *block) {
        qemu_plugin_register_vcpu_tb_exec_inline(block, 0, &executed, qemu_plugin_tb_n_insns(block));
    });
    qemu_plugin_register_vcpu_syscall_cb(plugin, [](uint64_t, unsigned, int64_t number, uint64_t first, auto...) {
        if (number == armGetppid && first == 0) executedAtStart = executed;
        if (number == armGetppid && first == 1) dprintf(1, "%" PRIu64 "\n", executed - executedAtStart);
    });
    return 0;
}
}
