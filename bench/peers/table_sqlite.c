/* SQLite's in-memory database doing table_bench's work on the same DBF file.
 * Load: the records are parsed by a plain C loop over the mapped file (texts without their
 * trailing blanks, numbers through strtod/strtoll, dates as YYYY-MM-DD, logicals as 0/1) and
 * inserted with one prepared INSERT in one transaction. Then the WHERE, ORDER BY and SUM of
 * table_bench's Filter, Sort, SortNumbers and Sum, each collecting the row ids (or the total) it
 * finds. Usage: table_sqlite FILE.dbf   (prints "name value" lines: mean milliseconds and counts)
 */
#include <fcntl.h>
#include <sqlite3.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

struct field {
    char name[12];
    char type;
    unsigned offset, length, decimals;
};

static double now_ms(void) {
    struct timespec ts;
    clock_gettime(CLOCK_MONOTONIC, &ts);
    return ts.tv_sec * 1000.0 + ts.tv_nsec / 1e6;
}

static void exec(sqlite3* db, const char* sql) {
    char* message = NULL;
    if (sqlite3_exec(db, sql, NULL, NULL, &message) != SQLITE_OK) {
        fprintf(stderr, "%s: %s\n", sql, message);
        exit(1);
    }
}

static unsigned u16(const unsigned char* p) {
    return p[0] | (p[1] << 8);
}
static unsigned u32(const unsigned char* p) {
    return p[0] | (p[1] << 8) | (p[2] << 16) | ((unsigned)p[3] << 24);
}

/* Creates table t with one column per field and inserts every record. */
static long load(sqlite3* db, const char* path) {
    int fd = open(path, O_RDONLY);
    struct stat st;
    if (fd < 0 || fstat(fd, &st) != 0) return -1;
    const unsigned char* bytes = mmap(NULL, st.st_size, PROT_READ, MAP_PRIVATE, fd, 0);
    unsigned count = u32(bytes + 4), header = u16(bytes + 8), length = u16(bytes + 10);
    struct field fields[64];
    int nfields = 0;
    char create[4096] = "CREATE TABLE t (", insert[1024] = "INSERT INTO t VALUES (";
    for (unsigned pos = 32; pos + 32 < header && bytes[pos] != 0x0D && nfields < 64; pos += 32) {
        struct field* f = &fields[nfields];
        memcpy(f->name, bytes + pos, 11);
        f->name[11] = 0;
        f->type = (char)bytes[pos + 11];
        f->offset = u32(bytes + pos + 12);
        f->length = bytes[pos + 16];
        f->decimals = bytes[pos + 17];
        const char* type = f->type == 'C'   ? "TEXT"
                           : f->type == 'N' ? (f->decimals ? "REAL" : "INTEGER")
                           : f->type == 'D' ? "DATE"
                                            : "BOOLEAN";
        snprintf(create + strlen(create), sizeof create - strlen(create), "%s%s %s",
                 nfields ? ", " : "", f->name, type);
        strcat(insert, nfields ? ", ?" : "?");
        ++nfields;
    }
    strcat(create, ")");
    strcat(insert, ")");
    exec(db, create);
    exec(db, "BEGIN");
    sqlite3_stmt* stmt = NULL;
    sqlite3_prepare_v2(db, insert, -1, &stmt, NULL);
    char text[256];
    for (unsigned r = 0; r < count; ++r) {
        const unsigned char* record = bytes + header + (size_t)r * length;
        for (int i = 0; i < nfields; ++i) {
            const struct field* f = &fields[i];
            const char* value = (const char*)record + f->offset;
            unsigned used = f->length;
            switch (f->type) {
            case 'C':
                while (used > 0 && value[used - 1] == ' ')
                    --used;
                sqlite3_bind_text(stmt, i + 1, value, (int)used, SQLITE_STATIC);
                break;
            case 'N':
                memcpy(text, value, used);
                text[used] = 0;
                if (f->decimals)
                    sqlite3_bind_double(stmt, i + 1, strtod(text, NULL));
                else
                    sqlite3_bind_int64(stmt, i + 1, strtoll(text, NULL, 10));
                break;
            case 'D':
                snprintf(text, sizeof text, "%.4s-%.2s-%.2s", value, value + 4, value + 6);
                sqlite3_bind_text(stmt, i + 1, text, 10, SQLITE_TRANSIENT);
                break;
            default:
                sqlite3_bind_int(stmt, i + 1, value[0] == 'T' || value[0] == 'Y');
            }
        }
        sqlite3_step(stmt);
        sqlite3_reset(stmt);
    }
    sqlite3_finalize(stmt);
    exec(db, "COMMIT");
    munmap((void*)bytes, st.st_size);
    close(fd);
    return (long)count;
}

/* Steps `sql` to the end; answers the rows it gave and keeps the first column's total. */
static long run(sqlite3* db, const char* sql, double* total) {
    sqlite3_stmt* stmt = NULL;
    if (sqlite3_prepare_v2(db, sql, -1, &stmt, NULL) != SQLITE_OK) {
        fprintf(stderr, "%s: %s\n", sql, sqlite3_errmsg(db));
        exit(1);
    }
    long rows = 0;
    *total = 0;
    while (sqlite3_step(stmt) == SQLITE_ROW) {
        *total += sqlite3_column_double(stmt, 0);
        ++rows;
    }
    sqlite3_finalize(stmt);
    return rows;
}

static double mean_ms(sqlite3* db, const char* sql, int repeat, long* rows, double* total) {
    double start = now_ms();
    for (int i = 0; i < repeat; ++i)
        *rows = run(db, sql, total);
    return (now_ms() - start) / repeat;
}

int main(int argc, char** argv) {
    if (argc != 2) {
        fprintf(stderr, "usage: table_sqlite FILE.dbf\n");
        return 2;
    }
    double load_total = 0;
    long loaded = 0;
    sqlite3* db = NULL;
    for (int i = 0; i < 3; ++i) {
        if (db) sqlite3_close(db);
        sqlite3_open(":memory:", &db);
        double start = now_ms();
        loaded = load(db, argv[1]);
        load_total += now_ms() - start;
    }
    if (loaded < 0) return 1;
    long rows = 0;
    double total = 0;
    printf("load %.1f\nrows %ld\n", load_total / 3, loaded);
    printf("filter %.1f\n", mean_ms(db,
                                    "SELECT rowid FROM t WHERE NAME LIKE 'Cliente 1%' "
                                    "AND PRICE > 500",
                                    5, &rows, &total));
    printf("filter_rows %ld\n", rows);
    printf("sort %.1f\n", mean_ms(db, "SELECT rowid FROM t ORDER BY QTY, NAME", 3, &rows, &total));
    printf("sort_numbers %.1f\n",
           mean_ms(db, "SELECT rowid FROM t ORDER BY ACTIVE, PRICE DESC", 3, &rows, &total));
    printf("sum %.1f\n", mean_ms(db, "SELECT SUM(PRICE) FROM t", 5, &rows, &total));
    printf("total %.2f\n", total);
    sqlite3_close(db);
    return 0;
}
