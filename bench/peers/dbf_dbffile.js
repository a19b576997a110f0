// Peer for the DBF benchmark: the `dbffile` package from the npm registry reads every field of
// every record (texts decoded from windows-1252, numbers, dates, logicals), 1,000 records a
// call. bench/run_dbf.sh installs the package into a temporary folder and points NODE_PATH at
// it. Usage: node dbf_dbffile.js FILE.dbf   (prints "dbffile_read milliseconds", mean of 3)
'use strict';
const { DBFFile } = require('dbffile');

async function readAll(path) {
    const dbf = await DBFFile.open(path, { encoding: 'windows-1252' });
    const names = dbf.fields.map((field) => field.name);
    let checksum = 0;
    let records = 0;
    for (;;) {
        const batch = await dbf.readRecords(1000);
        if (batch.length === 0) break;
        for (const record of batch) {
            for (const name of names) {
                const value = record[name];
                if (typeof value === 'number') checksum += value;
                else if (typeof value === 'string') checksum += value.length;
                else if (value instanceof Date) checksum += value.getDate();
                else if (value === true) checksum += 1;
            }
        }
        records += batch.length;
    }
    return { records, checksum };
}

async function main() {
    const path = process.argv[2];
    const runs = 3;
    let total = 0;
    let result;
    for (let i = 0; i < runs; ++i) {
        const start = process.hrtime.bigint();
        result = await readAll(path);
        total += Number(process.hrtime.bigint() - start) / 1e6;
    }
    console.log(`dbffile_read ${(total / runs).toFixed(1)}`);
    console.error(`dbffile records ${result.records} checksum ${result.checksum}`);
}

main().catch((error) => {
    console.error(error);
    process.exit(1);
});
