// qvd_build OUT.qvd SCRIPT.sql...: writes a fresh database file from SQL scripts, run in the order given.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sqlite3.h>
#include <sstream>

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::cerr << "usage: qvd_build OUT.qvd SCRIPT.sql...\n";
        return 2;
    }
    const std::filesystem::path out = argv[1];
    const std::filesystem::path temp = out.string() + ".building";
    std::filesystem::create_directories(out.parent_path());
    std::filesystem::remove(temp);

    sqlite3* db = nullptr;
    if (sqlite3_open(temp.c_str(), &db) != SQLITE_OK) {
        std::cerr << "qvd_build: cannot create " << temp << "\n";
        return 1;
    }
    int status = 0;
    sqlite3_exec(db, "begin", nullptr, nullptr, nullptr);
    for (int i = 2; i < argc && status == 0; ++i) {
        std::ifstream in(argv[i], std::ios::binary);
        std::stringstream text;
        text << in.rdbuf();
        char* error = nullptr;
        if (!in || sqlite3_exec(db, text.str().c_str(), nullptr, nullptr, &error) != SQLITE_OK) {
            std::cerr << "qvd_build: " << argv[i] << ": " << (error ? error : "cannot read") << "\n";
            sqlite3_free(error);
            status = 1;
        }
    }
    if (status == 0 && sqlite3_exec(db, "commit", nullptr, nullptr, nullptr) != SQLITE_OK)
        status = 1;
    if (status == 0)
        sqlite3_exec(db, "vacuum", nullptr, nullptr, nullptr);
    sqlite3_close(db);
    if (status == 0)
        std::filesystem::rename(temp, out);
    else
        std::filesystem::remove(temp);
    return status;
}
