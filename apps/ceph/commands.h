#pragma once
// The subcommands, one source file each.

namespace CLI {
class App;
}

namespace app {

void add_analyses_command(CLI::App &program, int &exit_code);
void add_table_command(CLI::App &program, int &exit_code);
void add_item_command(CLI::App &program, int &exit_code);
void add_eval_command(CLI::App &program, int &exit_code);
void add_catalogue_command(CLI::App &program, int &exit_code);
void add_surgery_command(CLI::App &program, int &exit_code);
void add_diagnose_command(CLI::App &program, int &exit_code);
void add_model_command(CLI::App &program, int &exit_code);
void add_check_command(CLI::App &program, int &exit_code);
void add_batch_command(CLI::App &program, int &exit_code);
void add_draw_command(CLI::App &program, int &exit_code);
void add_report_command(CLI::App &program, int &exit_code);
void add_date_command(CLI::App &program, int &exit_code);
void add_exif_command(CLI::App &program, int &exit_code);

}  // namespace app
