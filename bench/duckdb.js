// Runs one statement on a DuckDB database file and prints the rows: node duckdb.js FILE STATEMENT
// With no arguments it only looks whether the package is there.
const { DuckDBInstance } = require("@duckdb/node-api");

async function main([file, statement]) {
    if (!file) return;
    const connection = await (await DuckDBInstance.create(file)).connect();
    const rows = (await connection.runAndReadAll(statement)).getRows();
    console.log(rows.map((row) => row.join("\t")).join("\n"));
}

main(process.argv.slice(2));
