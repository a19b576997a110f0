/* Peers for the DBF benchmark: shapelib's DBF API and a bare loop over the bytes.
 * Usage: dbf_peers FILE.dbf   (prints "name milliseconds" lines) */
#include <fcntl.h>
#include <shapefil.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

static double clock_ms(clockid_t clock) {
    struct timespec ts;
    clock_gettime(clock, &ts);
    return ts.tv_sec * 1000.0 + ts.tv_nsec / 1e6;
}

static double now_ms(void) {
    return clock_ms(CLOCK_MONOTONIC);
}

/* CPU time of this process: steadier than the clock on a machine other work shares. */
static double cpu_ms(void) {
    return clock_ms(CLOCK_PROCESS_CPUTIME_ID);
}

/* Reads every field of every record as shapelib's callers do: text or double by type. */
static double shapelib_read(const char* path, double* checksum) {
    double start = now_ms();
    DBFHandle dbf = DBFOpen(path, "rb");
    if (!dbf) return -1;
    int records = DBFGetRecordCount(dbf), fields = DBFGetFieldCount(dbf);
    for (int r = 0; r < records; ++r) {
        for (int f = 0; f < fields; ++f) {
            char type = DBFGetNativeFieldType(dbf, f);
            if (type == 'N')
                *checksum += DBFReadDoubleAttribute(dbf, r, f);
            else
                *checksum += DBFReadStringAttribute(dbf, r, f)[0];
        }
    }
    DBFClose(dbf);
    return now_ms() - start;
}

static double shapelib_write(const char* path, int records) {
    double start = now_ms();
    DBFHandle dbf = DBFCreate(path);
    DBFAddField(dbf, "NAME", FTString, 20, 0);
    DBFAddField(dbf, "PRICE", FTDouble, 10, 2);
    DBFAddField(dbf, "QTY", FTInteger, 8, 0);
    DBFAddNativeFieldType(dbf, "BORN", 'D', 8, 0);
    DBFAddNativeFieldType(dbf, "ACTIVE", 'L', 1, 0);
    char text[32];
    for (int i = 0; i < records; ++i) {
        snprintf(text, sizeof text, "Cliente %d", i);
        DBFWriteStringAttribute(dbf, i, 0, text);
        DBFWriteDoubleAttribute(dbf, i, 1, (i % 100000) / 100.0);
        DBFWriteIntegerAttribute(dbf, i, 2, i % 1000);
        snprintf(text, sizeof text, "%04d%02d%02d", 1950 + i % 60, 1 + i % 12, 1 + i % 28);
        DBFWriteStringAttribute(dbf, i, 3, text);
        DBFWriteLogicalAttribute(dbf, i, 4, i % 2 == 0 ? 'T' : 'F');
    }
    DBFClose(dbf);
    double elapsed = now_ms() - start;
    unlink(path);
    return elapsed;
}

/* The floor: map the file and touch every byte of every record. */
static double bare_read(const char* path, double* checksum, double* cpu) {
    double start = now_ms(), cpu_start = cpu_ms();
    int fd = open(path, O_RDONLY);
    struct stat st;
    if (fd < 0 || fstat(fd, &st) != 0) return -1;
    const unsigned char* bytes = mmap(NULL, st.st_size, PROT_READ, MAP_PRIVATE, fd, 0);
    unsigned header = bytes[8] | (bytes[9] << 8), length = bytes[10] | (bytes[11] << 8);
    unsigned count = bytes[4] | (bytes[5] << 8) | (bytes[6] << 16) | ((unsigned)bytes[7] << 24);
    unsigned long sum = 0;
    for (unsigned long i = header; i < header + (unsigned long)count * length; ++i)
        sum += bytes[i];
    *checksum += (double)sum;
    munmap((void*)bytes, st.st_size);
    close(fd);
    *cpu = cpu_ms() - cpu_start;
    return now_ms() - start;
}

static int compare_doubles(const void* a, const void* b) {
    double x = *(const double*)a, y = *(const double*)b;
    return (x > y) - (x < y);
}

static double median5(double values[5]) {
    qsort(values, 5, sizeof values[0], compare_doubles);
    return values[2];
}

int main(int argc, char** argv) {
    if (argc != 2) {
        fprintf(stderr, "usage: dbf_peers FILE.dbf\n");
        return 2;
    }
    double checksum = 0;
    printf("shapelib_read %.1f\n", shapelib_read(argv[1], &checksum));
    /* The floor is the median of five runs, as the library's read is. */
    double bare[5], bare_cpu[5];
    for (int i = 0; i < 5; ++i)
        bare[i] = bare_read(argv[1], &checksum, &bare_cpu[i]);
    printf("bare_read %.1f\n", median5(bare));
    printf("bare_read_cpu %.1f\n", median5(bare_cpu));
    printf("shapelib_write %.1f\n", shapelib_write("/tmp/zlx-dbf-peer-write.dbf", 100000));
    fprintf(stderr, "checksum %g\n", checksum);
    return 0;
}
