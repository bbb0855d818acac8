// The data of a chart as columns over one x axis, as uPlot takes them.
import uPlot from 'uplot';
import type { LineChartData } from './chart_types';

export function alignedData(data: LineChartData): uPlot.AlignedData {
  const log = data.y.log ?? false;
  const columns = data.lines.map((line) => gaps(line.values, log));
  const x = data.x.values;
  if (data.lines.every((line) => !line.x)) return [x, ...columns] as unknown as uPlot.AlignedData;
  return uPlot.join(data.lines.map((line, i) => [line.x ?? x, columns[i]] as unknown as uPlot.AlignedData));
}

// NaN, and what a logarithmic axis cannot show, as null.
function gaps(values: ArrayLike<number>, log: boolean): ArrayLike<number | null> {
  let whole = true;
  for (let i = 0; i < values.length && whole; ++i) whole = Number.isFinite(values[i]) && (!log || values[i] > 0);
  if (whole) return values;
  return Array.from(values, (value) => (Number.isFinite(value) && (!log || value > 0) ? value : null));
}
