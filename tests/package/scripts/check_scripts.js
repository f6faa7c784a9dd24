// node check_scripts.js FILE…: parses PowerShell scripts and reports each syntax error.
const fs = require('fs');
const { Language, Parser } = require('web-tree-sitter');

async function main(files) {
  await Parser.init();
  const parser = new Parser();
  parser.setLanguage(
    await Language.load(require.resolve('tree-sitter-powershell/tree-sitter-powershell.wasm')));
  let failures = 0;
  const visit = (file, node) => {
    if (node.isError || node.isMissing) {
      ++failures;
      const { row, column } = node.startPosition;
      console.error(`${file}:${row + 1}:${column + 1}: not PowerShell: ${node.text.slice(0, 60)}`);
    } else if (node.hasError) {
      node.children.forEach((child) => visit(file, child));
    }
  };
  for (const file of files) visit(file, parser.parse(fs.readFileSync(file, 'utf8')).rootNode);
  return failures === 0 && files.length > 0 ? 0 : 1;
}

main(process.argv.slice(2)).then((status) => process.exit(status));
