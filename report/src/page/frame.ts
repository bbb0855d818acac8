// The frame of a chart: heading, what it shows in words, buttons that save it.
export interface ChartOptions {
  id: string; // of the section, and the stem of saved files
  title: string;
  // What the chart shows, in numbers: for those who cannot see it, and as its caption.
  caption: string;
  // A canvas with the whole chart, drawn when the button is pressed. Absent: no button.
  png?: () => HTMLCanvasElement | Promise<HTMLCanvasElement>;
  // The data as CSV with units in the head. Absent: no button.
  csv?: () => string | Promise<string>;
}

export interface ChartFrame {
  section: HTMLElement; // to be put into the page
  body: HTMLElement; // where the chart draws
  tools: HTMLElement; // further buttons
  setCaption(text: string): void;
}

export function chartFrame(options: ChartOptions): ChartFrame {
  const section = element('section', 'chart');
  section.id = options.id;
  const head = element('div', 'chart-head');
  const title = element('h2', '', options.title);
  title.id = options.id + '-title';
  const tools = element('div', 'tools');
  head.append(title, tools);
  const body = element('div', 'chart-body');
  body.setAttribute('role', 'group');
  body.setAttribute('aria-labelledby', title.id);
  const caption = element('p', 'caption', options.caption);
  caption.id = options.id + '-caption';
  body.setAttribute('aria-describedby', caption.id);
  section.append(head, body, caption);
  const { png, csv } = options;
  if (png) tools.append(button('PNG', `Save ${options.title} as a picture`, async () => save(await pngBlob(await png()), options.id + '.png')));
  if (csv) tools.append(button('CSV', `Save the data of ${options.title}`, async () => save(new Blob([await csv()], { type: 'text/csv' }), options.id + '.csv')));
  return { section, body, tools, setCaption: (text) => (caption.textContent = text) };
}

// An element with a class and a text. Texts never become markup.
export function element<Tag extends keyof HTMLElementTagNameMap>(tag: Tag, name = '', text = ''): HTMLElementTagNameMap[Tag] {
  const made = document.createElement(tag);
  if (name) made.className = name;
  if (text) made.textContent = text;
  return made;
}

export function button(text: string, label: string, act: () => void): HTMLButtonElement {
  const made = element('button', '', text);
  made.type = 'button';
  made.title = label;
  made.setAttribute('aria-label', label);
  made.addEventListener('click', act);
  return made;
}

function save(blob: Blob, name: string): void {
  const link = element('a');
  link.href = URL.createObjectURL(blob);
  link.download = name;
  link.click();
  setTimeout(() => URL.revokeObjectURL(link.href), 1000);
}

function pngBlob(canvas: HTMLCanvasElement): Promise<Blob> {
  return new Promise((resolve, reject) =>
    canvas.toBlob((blob) => (blob ? resolve(blob) : reject(new Error('the picture could not be made'))), 'image/png'),
  );
}
