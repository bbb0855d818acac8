// Lines of CSV files.
export type CsvValue = string | number | null | undefined;

// One line with its end. Texts are quoted where they must be; null and NaN give an empty value.
export function csvLine(values: CsvValue[]): string {
  return values.map(csvValue).join(',') + '\r\n';
}

function csvValue(value: CsvValue): string {
  if (value === null || value === undefined) return '';
  if (typeof value === 'number') return isFinite(value) ? String(value) : '';
  // Spreadsheets would take a text that begins so as a formula.
  const text = /^[=+\-@\t\r]/.test(value) ? `'${value}` : value;
  return /[",\r\n]/.test(text) ? `"${text.replaceAll('"', '""')}"` : text;
}
