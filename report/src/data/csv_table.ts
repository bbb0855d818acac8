// Tables as CSV: one head line with units (in plain ASCII, as CSV files name no encoding), then a
// line for each row.
import { csvLine } from './csv';

export interface Column {
  name: string;
  unit: string; // empty: none
  values: ArrayLike<number | null | undefined>;
}

export function csvTable(columns: Column[]): string {
  const rows = Math.max(0, ...columns.map((column) => column.values.length));
  const lines = [csvLine(columns.map((column) => named(column.name, column.unit.replace('²', '2'))))];
  for (let i = 0; i < rows; ++i) lines.push(csvLine(columns.map((column) => rounded(column.values[i]))));
  return lines.join('');
}

// A quantity and its unit: "time [s]".
export function named(name: string, unit: string): string {
  return unit ? `${name} [${unit}]` : name;
}

// Without the noise of the last bits: 0.3 instead of 0.30000000000000004.
function rounded(value: number | null | undefined): number | null {
  return value === null || value === undefined ? null : Number(value.toPrecision(9));
}
