// A line chart as one canvas on white ground with title and legend, for PNG files and for print.
import uPlot from 'uplot';
import { chartOptions } from './chart_options';
import { lineLook, markLook, paperPalette, type LineChartData, type Look, type Palette } from './chart_types';

const FONT = "system-ui, 'Liberation Sans', Arial, sans-serif";

export function chartPicture(
  data: LineChartData,
  aligned: uPlot.AlignedData,
  shown: boolean[],
  width: number,
  titled: boolean,
): HTMLCanvasElement {
  // uPlot multiplies by the pixel ratio of the screen; a picture has at least two pixels for each of
  // its width.
  const ratio = uPlot.pxRatio;
  const k = Math.max(1, 2 / ratio);
  const colours = paperPalette();
  const height = data.height ?? 260;
  const options = chartOptions(data, { width: width * k, height: height * k, scale: k, palette: colours, shown });
  const plot = new uPlot(options, aligned, document.createElement('div'));
  plot.batch(() => undefined); // draws now
  const unit = k * ratio;
  const picture = document.createElement('canvas');
  picture.className = 'print-picture';
  const head = titled ? 30 : 0;
  const items = legendItems(data, shown);
  const rows = layOut(picture.getContext('2d')!, items, width - 70);
  picture.width = plot.ctx.canvas.width;
  picture.height = plot.ctx.canvas.height + Math.round((head + rows.length * 20 + 6) * unit);
  const ctx = picture.getContext('2d')!;
  ctx.fillStyle = '#ffffff';
  ctx.fillRect(0, 0, picture.width, picture.height);
  ctx.drawImage(plot.ctx.canvas, 0, Math.round(head * unit));
  ctx.scale(unit, unit);
  ctx.textBaseline = 'middle';
  if (titled) {
    ctx.fillStyle = colours.ink;
    ctx.font = `600 15px ${FONT}`;
    ctx.fillText(data.title, 12, 17, width - 24);
  }
  rows.forEach((row, i) =>
    row.forEach(({ item, left }) => drawItem(ctx, item, left + 56, head + height + 12 + 20 * i, colours)),
  );
  plot.destroy();
  return picture;
}

interface Item {
  name: string;
  look: Look;
  kind: string;
}

// A chart of one line needs none.
function legendItems(data: LineChartData, shown: boolean[]): Item[] {
  const lines = data.lines.map((line, i) => ({ name: short(line.name), look: lineLook(i), kind: line.kind ?? 'line' }));
  const marks = (data.marks ?? []).map((mark, i) => ({ name: short(mark.name), look: markLook(i), kind: 'line' }));
  const all = [...lines, ...marks].filter((_, i) => shown[i]);
  return all.length > 1 ? all : [];
}

function short(name: string): string {
  return name.length > 60 ? name.slice(0, 59) + '…' : name;
}

function layOut(ctx: CanvasRenderingContext2D, items: Item[], width: number): { item: Item; left: number }[][] {
  const rows: { item: Item; left: number }[][] = [];
  let left = Infinity;
  ctx.font = `12px ${FONT}`;
  for (const item of items) {
    const need = 56 + ctx.measureText(item.name).width;
    if (left + need > width) {
      rows.push([]);
      left = 0;
    }
    rows[rows.length - 1].push({ item, left });
    left += need;
  }
  return rows;
}

function drawItem(
  ctx: CanvasRenderingContext2D,
  { name, look, kind }: Item,
  x: number,
  y: number,
  colours: Palette,
): void {
  ctx.strokeStyle = colours[look.colour];
  ctx.fillStyle = kind === 'area' ? colours.line : colours[look.colour];
  ctx.lineWidth = 2;
  ctx.setLineDash(kind === 'line' ? look.dash : []);
  ctx.beginPath();
  if (kind === 'bars' || kind === 'area') ctx.fillRect(x + 4, y - 5, 22, 10);
  else if (kind === 'dots') (ctx.arc(x + 15, y, 4, 0, 2 * Math.PI), ctx.fill());
  else (ctx.moveTo(x, y), ctx.lineTo(x + 30, y), ctx.stroke());
  ctx.fillStyle = colours.ink;
  ctx.font = `12px ${FONT}`;
  ctx.fillText(name, x + 36, y);
}
